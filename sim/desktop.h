// The simulated desktop: its windows in their order, their menus, and the accessible objects.
#pragma once

#include <map>
#include <span>
#include <unordered_map>
#include <vector>

#include "sim/window.h"

namespace pointalk::sim {

struct Menu {
  struct Item {
    Text text;
    Rectangle place;
    MenuHandle submenu = 0;
  };
  std::vector<Item> items;

  // Null for a position out of range.
  const Item* At(std::int32_t position) const;
};

class Desktop {
 public:
  // Windows and objects from the lowest to the topmost; the windows' ids are all different.
  Desktop(const std::vector<WindowFields>& windows, std::vector<AccessibleObject> accessibleObjects);

  // Applies the fields to the window with their id, which must exist.
  void Change(const WindowFields& fields);

  std::span<const Window> Windows() const { return windows_; }

  // Null when there is none, and for 0.
  const Window* Find(WindowHandle id) const;
  const Window* VisibleAt(Point screen) const;
  const Menu* FindMenu(MenuHandle menu) const;

  std::vector<AccessibleObject> objects;  // the later above the earlier

 private:
  void Apply(const WindowFields& fields, Window& window);
  MenuHandle AddMenu(const MenuSetup& setup);
  void RemoveMenu(MenuHandle handle);

  std::vector<Window> windows_;
  std::unordered_map<WindowHandle, std::size_t> places_;
  std::map<MenuHandle, Menu> menus_;
  MenuHandle lastMenu_ = 0x10000;
};

}  // namespace pointalk::sim
