// Menus of windows. Here a menu is an accessible object as everything else is, and no window tells of one.
#pragma once

#include "platform/menus.h"

namespace pointalk::linux {

class LinuxMenus final : public Menus {
 public:
  MenuHandle MenuOf(WindowHandle) override { return 0; }
  MenuHandle SubMenuOf(MenuHandle, int) override { return 0; }
  bool IsMenu(MenuHandle) override { return false; }
  std::int32_t ItemAt(WindowHandle, MenuHandle, Point) override { return -1; }
  std::int32_t ItemText(MenuHandle, std::int32_t, Text&, int) override { return 0; }
};

}  // namespace pointalk::linux
