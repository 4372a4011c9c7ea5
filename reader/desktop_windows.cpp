#include "reader/desktop_windows.h"

namespace pointalk {

bool IsWindows95(System& system) {
  const auto version = system.Version();
  return version && version->platform == 1 && version->major == 4 && version->minor == 0;
}

void DesktopWindows::FindDesktopIconList(System& system, WindowTree& windows) {
  mIsWindows95 = IsWindows95(system);
  mDesktopView = windows.FirstChildOf(windows.FindTopLevel(u"Progman", u"Program Manager"));
  mDesktopListView = windows.FirstChildOf(mDesktopView);
}

}  // namespace pointalk
