#include "win32/exact_timer.h"

#include "win32/late_procedure.h"

namespace pointalk::win32 {

bool SetExactTimer(HWND window, UINT_PTR timer, UINT milliseconds) {
  const auto set = LateProcedure<decltype(&SetCoalescableTimer)>(L"user32.dll", "SetCoalescableTimer");
  if (set != nullptr && set(window, timer, milliseconds, nullptr, TIMERV_NO_COALESCING) != 0) return true;
  return SetTimer(window, timer, milliseconds, nullptr) != 0;
}

}  // namespace pointalk::win32
