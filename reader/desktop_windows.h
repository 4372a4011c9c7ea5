// The desktop's own windows, by which its icon list is recognised.
#pragma once

#include "platform/system.h"
#include "platform/types.h"
#include "platform/window_tree.h"

namespace pointalk {

// Platform 1, version 4.0; false also when the system does not tell.
bool IsWindows95(System& system);

struct DesktopWindows {
  WindowHandle mDesktopView = 0;  // the first child of the program manager's window; 0 where there is none
  WindowHandle mDesktopListView = 0;  // its first child, the icon list; 0 where there is none
  bool mIsWindows95 = false;          // Kept: nothing reads it.

  void FindDesktopIconList(System& system, WindowTree& windows);
};

}  // namespace pointalk
