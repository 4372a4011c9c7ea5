// Window handles as the seam has them, which are numbers, and as the system has them.
#pragma once

#include <windows.h>

#include <cstdint>

#include "platform/types.h"

namespace pointalk::win32 {

inline HWND ToWindow(WindowHandle window) {
  return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(window));
}

inline WindowHandle FromWindow(HWND window) { return reinterpret_cast<std::uintptr_t>(window); }

}  // namespace pointalk::win32
