// Owners of the system's handles, which give them back.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace pointalk::win32 {

// Gives a resource back by a function of the system's.
template <auto give> struct GivenBackBy {
  template <typename Pointer> void operator()(Pointer* resource) const { give(resource); }
};

template <typename Handle, auto give>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, GivenBackBy<give>>;

using OwnedHandle = Owned<HANDLE, CloseHandle>;
using OwnedFont = Owned<HFONT, DeleteObject>;
using OwnedIcon = Owned<HICON, DestroyIcon>;
using OwnedAccelerators = Owned<HACCEL, DestroyAcceleratorTable>;

}  // namespace pointalk::win32
