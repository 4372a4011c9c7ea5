// UTF-8, in which this system keeps and passes on its texts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/text.h"

namespace pointalk::linux {

// The most characters that are taken of a text of another program.
inline constexpr std::size_t kLongestForeignText = 65'536;

// An unpaired half of a surrogate pair becomes U+FFFD.
std::string ToUtf8(TextView text);

// At most that many UTF-16 units. What is no UTF-8 becomes U+FFFD, byte by byte.
Text FromUtf8(std::string_view utf8, std::size_t most = kLongestForeignText);

}  // namespace pointalk::linux
