// Messages by the names that commands and counters use.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace pointalk::target {

// Calls on an accessible object count and take rules as messages do, under numbers that no window message
// has.
enum AccessibleCall : UINT {
  kAccHitTest = 0x10001,
  kAccName,
  kAccRole,
  kAccDescription,
  kAccValue,
  kAccState,
  kAccOther,  // any other member
};

// Stands for every message and call in a rule.
inline constexpr UINT kAnyMessage = 0x1FFFF;

// Throws CommandError for an unknown name; takes numbers too.
UINT MessageNumber(std::wstring_view name);
// Its name, or its number in hexadecimal.
std::string MessageName(UINT message);

}  // namespace pointalk::target
