// The text of a window, of another program too.
#pragma once

#include "platform/control_messages.h"
#include "platform/text.h"
#include "platform/types.h"
#include "platform/window_tree.h"

namespace pointalk {

class WindowTitle {
 public:
  WindowTitle(ControlMessages& theMessages, WindowTree& theWindows)
      : messages(theMessages), windows(theWindows) {}

  // At most 65,536 characters; empty when there is none. Asks the window's program, so a window that is not
  // needed is not asked.
  Text GetWindowTitle(WindowHandle window);

 private:
  ControlMessages& messages;
  WindowTree& windows;
};

}  // namespace pointalk
