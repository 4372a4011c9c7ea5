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

  // At most 65,536 characters; empty when there is none. This asks the window's program, which costs time: to
  // be called only where the title is needed.
  Text GetWindowTitle(WindowHandle window);

 private:
  ControlMessages& messages_;
  WindowTree& windows_;
};

}  // namespace pointalk
