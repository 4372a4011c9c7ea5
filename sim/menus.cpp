#include "sim/menus.h"

#include "sim/window_tree.h"

namespace pointalk::sim {

const Menu::Item* SimMenus::Item(MenuHandle menu, std::int32_t position) const {
  const Menu* const found = desktop_.FindMenu(menu);
  return found == nullptr ? nullptr : found->At(position);
}

MenuHandle SimMenus::MenuOf(WindowHandle handle) {
  const Window* const window = desktop_.Find(handle);
  return window == nullptr ? 0 : window->menu;
}

MenuHandle SimMenus::SubMenuOf(MenuHandle menu, int position) {
  const Menu::Item* const item = Item(menu, position);
  return item == nullptr ? 0 : item->submenu;
}

bool SimMenus::IsMenu(MenuHandle menu) { return desktop_.FindMenu(menu) != nullptr; }

std::int32_t SimMenus::ItemAt(WindowHandle, MenuHandle menu, Point screen) {
  const Menu* const found = desktop_.FindMenu(menu);
  if (found == nullptr) return -1;
  std::int32_t position = 0;
  for (const Menu::Item& item : found->items) {
    if (item.place.Holds(screen)) return position;
    ++position;
  }
  return -1;
}

std::int32_t SimMenus::ItemText(MenuHandle menu, std::int32_t position, Text& buffer, int capacity) {
  const Menu::Item* const item = Item(menu, position);
  if (item == nullptr) return 0;
  const Text text = FittingBuffer(item->text, capacity);
  buffer.replace(0, text.size(), text);
  return static_cast<std::int32_t>(text.size());
}

}  // namespace pointalk::sim
