#include "reader/top_window.h"

#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr int kMostParents = 65;
constexpr int kTopClassLimit = 511;
constexpr TextView kTaskBar = u"TaskBar";
constexpr TextView kTaskBarClass = u"shell_tray";

}  // namespace

Text TopWindow::NameAbove(WindowHandle window) {
  for (int round = 0; round < kMostParents; ++round) {
    const WindowHandle parent = windows_.ParentOf(window);
    if (parent == 0) {
      // Handle 0 has neither a class nor a parent, so further rounds would find no name.
      return ContainsInLowerCase(ClassOf(window), kTaskBarClass) ? Text(kTaskBar) : Text();
    }
    if (window == 0 || IsDesktops(window)) return {};
    if (IsDesktops(parent)) return NameBelowDesktop(window);
    window = parent;
  }
  return {};
}

bool TopWindow::IsDesktops(WindowHandle window) const {
  return window == desktopWindows_.IconList() || window == desktopWindows_.View();
}

Text TopWindow::ClassOf(WindowHandle window) {
  return windows_.ClassOf(window, kTopClassLimit).value_or(Text());
}

Text TopWindow::NameBelowDesktop(WindowHandle window) {
  const Text className = ClassOf(window);
  if (ContainsInLowerCase(className, kTaskBarClass)) return Text(kTaskBar);
  const Text title = windowTitle_.GetWindowTitle(window);
  return Text(IsBlank(title) ? Trimmed(className) : Trimmed(title));
}

}  // namespace pointalk
