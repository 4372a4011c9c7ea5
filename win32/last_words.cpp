#include "win32/last_words.h"

namespace pointalk::win32 {

// A window that is not painted asks for it again and again; and whoever posts without end must not keep the
// program from ending.
void HandleWithoutForm(HWND form) {
  constexpr int kMost = 1000;
  MSG message;
  for (int count = 0; count < kMost && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++count) {
    if (GetAncestor(message.hwnd, GA_ROOT) != form || message.message == WM_PAINT) DispatchMessageW(&message);
  }
}

}  // namespace pointalk::win32
