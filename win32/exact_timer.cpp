#include "win32/exact_timer.h"

#include "win32/late_procedure.h"

namespace pointalk::win32 {

TimerCalls TimerCalls::OfSystem() {
  return {LateProcedure<decltype(&SetCoalescableTimer)>(L"user32.dll", "SetCoalescableTimer"), &SetTimer};
}

bool SetExactTimer(HWND window, UINT_PTR timer, UINT milliseconds, const TimerCalls& system) {
  if (system.setCoalescable != nullptr &&
      system.setCoalescable(window, timer, milliseconds, nullptr, TIMERV_NO_COALESCING) != 0)
    return true;
  return system.set(window, timer, milliseconds, nullptr) != 0;
}

}  // namespace pointalk::win32
