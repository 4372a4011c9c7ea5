#include "sim/list_box.h"

#include <algorithm>

namespace pointalk::sim {

std::int32_t ListBox::ItemFromPoint(Point client) const {
  constexpr std::int64_t kOutside = 0x10000;
  const auto count = static_cast<std::int64_t>(items.size());
  const std::int64_t index = std::int64_t{top} + client.y / itemHeight;
  if (client.y >= 0 && index < count) return static_cast<std::int32_t>(index);
  return static_cast<std::int32_t>(kOutside + std::max<std::int64_t>(count - 1, 0));
}

const Text* ListBox::Item(std::int32_t index) const {
  const bool isItem = index >= 0 && static_cast<std::size_t>(index) < items.size();
  return isItem ? &items[static_cast<std::size_t>(index)] : nullptr;
}

}  // namespace pointalk::sim
