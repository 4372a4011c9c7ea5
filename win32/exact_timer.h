// A timer that the system does not delay to save power.
#pragma once

#include <windows.h>

namespace pointalk::win32 {

// What systems offer for it.
struct TimerCalls {
  // Those of this system.
  static TimerCalls OfSystem();

  decltype(&SetCoalescableTimer) setCoalescable = nullptr;  // Windows 8 and later
  decltype(&SetTimer) set = nullptr;
};

// As SetTimer, with WM_TIMER messages to the window. Systems before Windows 8 delay no timers.
bool SetExactTimer(HWND window, UINT_PTR timer, UINT milliseconds,
                   const TimerCalls& system = TimerCalls::OfSystem());

}  // namespace pointalk::win32
