// Seam: the menus of windows.
#pragma once

#include <cstdint>

#include "platform/types.h"
#include "text/text.h"

namespace pointalk {

class Menus {
 public:
  virtual ~Menus() = default;

  // The window's menu; 0 where there is none.
  virtual MenuHandle MenuOf(WindowHandle window) = 0;

  // The submenu that the item at a position opens; 0 where it opens none.
  virtual MenuHandle SubMenuOf(MenuHandle menu, int position) = 0;

  virtual bool IsMenu(MenuHandle menu) = 0;

  // The position of the item at a screen point; -1 where there is none.
  virtual std::int32_t ItemAt(WindowHandle window, MenuHandle menu, Point screen) = 0;

  // Writes the text of the item at a position over the beginning of the buffer, at most capacity - 1
  // characters of it, lengthening a buffer that is too short for them. Gives the number of characters
  // written; on failure 0, with the buffer as it was.
  virtual std::int32_t ItemText(MenuHandle menu, std::int32_t position, Text& buffer, int capacity) = 0;
};

}  // namespace pointalk
