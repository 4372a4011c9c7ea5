// A timer that the system does not delay to save power.
#pragma once

#include <windows.h>

namespace pointalk::win32 {

// As SetTimer, with WM_TIMER messages to the window. Systems before Windows 8 delay no timers.
bool SetExactTimer(HWND window, UINT_PTR timer, UINT milliseconds);

}  // namespace pointalk::win32
