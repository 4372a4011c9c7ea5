// Texts as they come out of buffers of a given size.
#pragma once

#include <algorithm>
#include <cstdint>

#include "text/text.h"

namespace pointalk::linux {

// What of a text fits with its ending NUL into a buffer of that many characters.
inline Text FittingBuffer(TextView text, std::int32_t capacity) {
  return Text(text.substr(0, static_cast<std::size_t>(std::max(capacity - 1, 0))));
}

}  // namespace pointalk::linux
