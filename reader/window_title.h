// The text of a window, of another program too.
#pragma once

#include "platform/control_messages.h"
#include "platform/types.h"
#include "platform/window_tree.h"
#include "text/text.h"

namespace pointalk {

class WindowTitle {
 public:
  WindowTitle(ControlMessages& messages, WindowTree& windows) : messages_(messages), windows_(windows) {}

  // At most 65,536 characters; empty when there is none. Asks the window's program, so a window that is not
  // needed is not asked.
  Text GetWindowTitle(WindowHandle window);

 private:
  ControlMessages& messages_;
  WindowTree& windows_;
};

}  // namespace pointalk
