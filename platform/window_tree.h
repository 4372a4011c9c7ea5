// Seam: the windows of the desktop, what they are and how they belong together. No method sends a message to
// another program, so an unresponsive program answers as well.
#pragma once

#include <optional>

#include "platform/types.h"
#include "text/text.h"

namespace pointalk {

class WindowTree {
 public:
  virtual ~WindowTree() = default;

  // The window under a screen point; 0 where there is none.
  virtual WindowHandle WindowAt(Point screen) = 0;

  // The class name, at most limit - 1 characters of it; no value for a handle that is no window.
  virtual std::optional<Text> ClassOf(WindowHandle window, int limit) = 0;

  // The parent or owner; 0 for a top-level window without one and for a handle that is no window.
  virtual WindowHandle ParentOf(WindowHandle window) = 0;

  // The first child; 0 where there is none.
  virtual WindowHandle FirstChildOf(WindowHandle window) = 0;

  // The top-level window with exactly this class and title; 0 where there is none.
  virtual WindowHandle FindTopLevel(TextView className, TextView title) = 0;

  // The process that owns the window; no value for a handle that is no window or a process that is not told.
  virtual std::optional<ProcessId> ProcessOf(WindowHandle window) = 0;

  // A screen point in the window's client coordinates; no value for a handle that is no window.
  virtual std::optional<Point> ToClient(WindowHandle window, Point screen) = 0;

  // The title that the system itself keeps for the window, at most capacity - 1 characters; empty when there
  // is none. Never asks another program, and so cannot tell every password field: ask for a window's own text
  // first, which is refused for all of them.
  virtual Text CaptionOf(WindowHandle window, int capacity) = 0;
};

}  // namespace pointalk
