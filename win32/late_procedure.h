// Functions that not every system has.
#pragma once

#include <windows.h>

namespace pointalk::win32 {

// A function of a library that is loaded already; null where this system lacks it.
template <typename Procedure> Procedure LateProcedure(const wchar_t* library, const char* name) {
  const HMODULE module = GetModuleHandleW(library);
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Procedure>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

}  // namespace pointalk::win32
