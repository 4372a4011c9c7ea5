// Windows, each of which stands here for an accessible object.
#pragma once

#include "linux/things.h"
#include "platform/window_tree.h"

namespace pointalk::linux {

class LinuxWindowTree final : public WindowTree {
 public:
  explicit LinuxWindowTree(Things& things) : things_(things) {}

  // Asks the program under the point, with the time limit of a question about an object; of one that does not
  // answer it gives the window that the X server knows.
  WindowHandle WindowAt(Point screen) override;
  std::optional<Text> ClassOf(WindowHandle window, int limit) override;
  WindowHandle ParentOf(WindowHandle window) override;
  WindowHandle FirstChildOf(WindowHandle window) override;
  // There is no window here that is known by its class and title.
  WindowHandle FindTopLevel(TextView, TextView) override { return 0; }
  std::optional<ProcessId> ProcessOf(WindowHandle window) override;
  std::optional<Point> ToClient(WindowHandle window, Point screen) override;
  Text CaptionOf(WindowHandle window, int capacity) override;

 private:
  Things& things_;
};

}  // namespace pointalk::linux
