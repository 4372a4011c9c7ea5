// The menus of the simulated windows.
#pragma once

#include "platform/menus.h"
#include "sim/desktop.h"

namespace pointalk::sim {

class SimMenus final : public Menus {
 public:
  explicit SimMenus(const Desktop& desktop) : desktop_(desktop) {}

  MenuHandle MenuOf(WindowHandle handle) override;
  MenuHandle SubMenuOf(MenuHandle menu, int position) override;
  bool IsMenu(MenuHandle menu) override;
  std::int32_t ItemAt(WindowHandle window, MenuHandle menu, Point screen) override;
  std::int32_t ItemText(MenuHandle menu, std::int32_t position, Text& buffer, int capacity) override;

 private:
  const Menu::Item* Item(MenuHandle menu, std::int32_t position) const;

  const Desktop& desktop_;
};

}  // namespace pointalk::sim
