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
  TopWindow(WindowTree& windows, const DesktopWindows& desktop, WindowTitle& titles)
      : windows_(windows), desktop_(desktop), titles_(titles) {}

  // "TaskBar" for the task bar; else the title or class of the window right below the desktop's own ones;
  // empty for every window that does not hang below those.
  Text NameAbove(WindowHandle window);

 private:
  WindowTree& windows_;
  const DesktopWindows& desktop_;
  WindowTitle& titles_;

  bool IsDesktops(WindowHandle window) const;
  Text ClassOf(WindowHandle window);
  Text NameBelowDesktop(WindowHandle window);
};

}  // namespace pointalk
