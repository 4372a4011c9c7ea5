// Finds the name of the top-level window that holds a window, where the desktop's own windows are above it.
#pragma once

#include "platform/types.h"
#include "platform/window_tree.h"
#include "reader/desktop_windows.h"
#include "reader/window_title.h"
#include "text/text.h"

namespace pointalk {

class TopWindow {
 public:
  TopWindow(WindowTree& windows, const DesktopWindows& desktopWindows, WindowTitle& windowTitle)
      : windows_(windows), desktopWindows_(desktopWindows), windowTitle_(windowTitle) {}

  // "TaskBar" for the task bar; else the title or class of the window right below the desktop's own ones;
  // empty for every window that does not hang below those.
  Text NameAbove(WindowHandle window);

 private:
  WindowTree& windows_;
  const DesktopWindows& desktopWindows_;
  WindowTitle& windowTitle_;

  bool IsDesktops(WindowHandle window) const;
  Text ClassOf(WindowHandle window);
  Text NameBelowDesktop(WindowHandle window);
};

}  // namespace pointalk
