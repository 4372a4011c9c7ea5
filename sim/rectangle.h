// A rectangle in pixels.
#pragma once

#include <cstdint>

#include "platform/types.h"

namespace pointalk::sim {

struct Rectangle {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;   // the first column outside
  std::int32_t bottom = 0;  // the first row outside

  bool Holds(Point point) const {
    return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
  }
};

}  // namespace pointalk::sim
