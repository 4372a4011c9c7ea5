// A list box's items and how it answers questions about them.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/types.h"
#include "text/text.h"

namespace pointalk::sim {

struct ListBox {
  std::vector<Text> items;  // as the code page has them; may hold NULs
  std::int32_t itemHeight = 16;
  std::int32_t top = 0;  // the index of the item at the top

  // The item at a client point; past the items 65,536 plus the last index, or 65,536 when there are none.
  std::int32_t ItemFromPoint(Point client) const;

  // Null for an index out of range.
  const Text* Item(std::int32_t index) const;
};

}  // namespace pointalk::sim
