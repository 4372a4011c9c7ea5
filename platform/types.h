// Small values that several seam interfaces share.
#pragma once

#include <cstdint>

namespace pointalk {

// Handles and addresses are numbers of the platform's own; 0 is none. They are compared as numbers, 0
// included.
using WindowHandle = std::uint64_t;
using MenuHandle = std::uint64_t;
using ProcessId = std::uint32_t;
using RemoteAddress = std::uint64_t;

struct Point {
  std::int32_t x = 0;  // pixels, growing to the right
  std::int32_t y = 0;  // pixels, growing downwards
  friend bool operator==(const Point&, const Point&) = default;
};

}  // namespace pointalk
