// The menus of windows.
#pragma once

#include "platform/menus.h"
#include "win32/window_scale.h"

namespace pointalk::win32 {

class WinMenus final : public Menus {
 public:
  MenuHandle MenuOf(WindowHandle window) override;
  MenuHandle SubMenuOf(MenuHandle menu, int position) override;
  bool IsMenu(MenuHandle menu) override;
  std::int32_t ItemAt(WindowHandle window, MenuHandle menu, Point screen) override;
  std::int32_t ItemText(MenuHandle menu, std::int32_t position, Text& buffer, int capacity) override;

 private:
  WindowScale scale_;
};

}  // namespace pointalk::win32
