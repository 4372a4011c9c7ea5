// The desktop's own windows, by which its icon list is recognised.
#pragma once

#include "platform/system.h"
#include "platform/types.h"
#include "platform/window_tree.h"

namespace pointalk {

// Platform 1, version 4.0; false also when the system does not tell.
bool IsWindows95(System& system);  // Kept: nothing reads it.

class DesktopWindows {
 public:
  void FindDesktopIconList(System& system, WindowTree& windows);

  // The first child of the program manager's window; 0 where there is none.
  WindowHandle View() const { return mDesktopView; }

  // Its first child; 0 where there is none.
  WindowHandle IconList() const { return mDesktopListView; }

  bool AreOfWindows95() const { return mIsWindows95; }  // Kept: nothing reads it.

 private:
  WindowHandle mDesktopView = 0;
  WindowHandle mDesktopListView = 0;
  bool mIsWindows95 = false;
};

}  // namespace pointalk
