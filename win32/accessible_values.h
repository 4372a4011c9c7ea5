// What accessible objects and automation elements give as values, in the program's own types.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "win32/com.h"

namespace pointalk::win32 {

// A value is the text of a document at times. A description is a sentence or two, and what goes on for ever
// is of use to nobody.
inline constexpr std::size_t kLongestDescription = 2000;  // characters

// Some objects give a text of their own instead of a number.
std::optional<std::int32_t> NumberIn(Variant& value);

}  // namespace pointalk::win32
