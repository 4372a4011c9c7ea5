// Window handles as the seam has them, which are numbers, and as the system has them; and their class names.
#pragma once

#include <windows.h>

#include <cstdint>

#include "platform/types.h"

namespace pointalk::win32 {

// Of a window, in characters; the system allows no more.
inline constexpr int kLongestClassName = 256;

inline HWND ToWindow(WindowHandle window) {
  return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(window));
}

inline WindowHandle FromWindow(HWND window) { return reinterpret_cast<std::uintptr_t>(window); }

}  // namespace pointalk::win32
