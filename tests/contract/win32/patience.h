// How long the contract suite waits on Windows.
#pragma once

#include <windows.h>

namespace pointalk::contract {

// Milliseconds after which what has not come never will.
inline constexpr DWORD kPatience = 100'000;

}  // namespace pointalk::contract
