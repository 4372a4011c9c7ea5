#include "win32/last_words.h"

namespace pointalk::win32 {

// A window that is not painted asks for it again and again.
void HandleWithoutForm(HWND form) {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (GetAncestor(message.hwnd, GA_ROOT) != form || message.message == WM_PAINT) DispatchMessageW(&message);
  }
}

}  // namespace pointalk::win32
