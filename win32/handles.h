// Owners of the system's handles, which release them.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace pointalk::win32 {

// Releases a resource by a function of the system's.
template <auto release> struct Deleter {
  template <typename Pointer> void operator()(Pointer* resource) const { release(resource); }
};

template <typename Handle, auto release>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, Deleter<release>>;

using OwnedHandle = Owned<HANDLE, CloseHandle>;
using OwnedFont = Owned<HFONT, DeleteObject>;
using OwnedIcon = Owned<HICON, DestroyIcon>;
using OwnedAccelerators = Owned<HACCEL, DestroyAcceleratorTable>;

}  // namespace pointalk::win32
