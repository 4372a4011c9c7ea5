#include "sim/list_view.h"

namespace pointalk::sim {

ListView::Hit ListView::HitTest(Point client) const {
  std::int32_t index = 0;
  for (const Item& item : items) {
    if (item.icon.Holds(client)) return {index, kHitIcon};
    if (item.label.Holds(client)) return {index, kHitLabel};
    ++index;
  }
  return {};
}

}  // namespace pointalk::sim
