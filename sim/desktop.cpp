#include "sim/desktop.h"

#include <utility>

namespace pointalk::sim {

const Menu::Item* Menu::At(std::int32_t position) const {
  const bool isItem = position >= 0 && static_cast<std::size_t>(position) < items.size();
  return isItem ? &items[static_cast<std::size_t>(position)] : nullptr;
}

Desktop::Desktop(const std::vector<WindowFields>& windows, std::vector<AccessibleObject> accessibleObjects)
    : objects(std::move(accessibleObjects)) {
  windows_.reserve(windows.size());
  for (const WindowFields& fields : windows) {
    places_.emplace(fields.id, windows_.size());
    Window& window = windows_.emplace_back();
    window.id = fields.id;
    Apply(fields, window);
  }
}

void Desktop::Change(const WindowFields& fields) { Apply(fields, windows_[places_.at(fields.id)]); }

void Desktop::Apply(const WindowFields& fields, Window& window) {
  const auto take = [](const auto& from, auto& to) {
    if (from) to = *from;
  };
  take(fields.className, window.className);
  take(fields.title, window.title);
  take(fields.place, window.place);
  take(fields.parent, window.parent);
  take(fields.process, window.process);
  take(fields.visible, window.visible);
  take(fields.hung, window.hung);
  take(fields.listBox, window.listBox);
  take(fields.listView, window.listView);
  take(fields.edit, window.edit);
  take(fields.richEdit, window.richEdit);
  if (fields.menu) {
    RemoveMenu(window.menu);
    window.menu = AddMenu(*fields.menu);
  }
}

const Window* Desktop::Find(WindowHandle id) const {
  const auto found = places_.find(id);
  return found == places_.end() ? nullptr : &windows_[found->second];
}

const Window* Desktop::VisibleAt(Point screen) const {
  for (auto window = windows_.rbegin(); window != windows_.rend(); ++window) {
    if (window->visible && window->place.Holds(screen)) return &*window;
  }
  return nullptr;
}

const Menu* Desktop::FindMenu(MenuHandle menu) const {
  const auto found = menus_.find(menu);
  return found == menus_.end() ? nullptr : &found->second;
}

MenuHandle Desktop::AddMenu(const MenuSetup& setup) {
  Menu menu;
  for (const MenuSetup::Item& item : setup.items) {
    menu.items.push_back({item.text, item.place, item.submenu ? AddMenu(*item.submenu) : 0});
  }
  menus_.emplace(++lastMenu_, std::move(menu));
  return lastMenu_;
}

void Desktop::RemoveMenu(MenuHandle handle) {
  const auto found = menus_.find(handle);
  if (found == menus_.end()) return;
  const Menu menu = std::move(found->second);
  menus_.erase(found);
  for (const Menu::Item& item : menu.items) RemoveMenu(item.submenu);
}

}  // namespace pointalk::sim
