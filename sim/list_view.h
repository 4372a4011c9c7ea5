// A list view's items and its hit test.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/types.h"
#include "sim/rectangle.h"
#include "text/text.h"

namespace pointalk::sim {

// What a hit test says that a point is on.
inline constexpr std::uint32_t kHitNowhere = 1;
inline constexpr std::uint32_t kHitIcon = 2;
inline constexpr std::uint32_t kHitLabel = 4;

struct ListView {
  struct Item {
    Text text;        // as the code page has it
    Rectangle icon;   // in client coordinates
    Rectangle label;  // in client coordinates
  };

  struct Hit {
    std::int32_t item = -1;
    std::uint32_t flags = kHitNowhere;
  };

  std::vector<Item> items;

  Hit HitTest(Point client) const;
};

}  // namespace pointalk::sim
