// The windows of the simulated desktop as the platform tells of them.
#pragma once

#include "platform/window_tree.h"
#include "sim/desktop.h"

namespace pointalk::sim {

class SimWindowTree final : public WindowTree {
 public:
  explicit SimWindowTree(const Desktop& desktop) : desktop_(desktop) {}

  WindowHandle WindowAt(Point screen) override;
  std::optional<Text> ClassOf(WindowHandle handle, int limit) override;
  WindowHandle ParentOf(WindowHandle handle) override;
  WindowHandle FirstChildOf(WindowHandle handle) override;
  WindowHandle FindTopLevel(TextView className, TextView title) override;
  std::optional<ProcessId> ProcessOf(WindowHandle handle) override;
  std::optional<Point> ToClient(WindowHandle handle, Point screen) override;
  Text CaptionOf(WindowHandle handle, int capacity) override;

 private:
  const Desktop& desktop_;
};

// At most capacity - 1 characters of a text: what fits a buffer of that size beside the ending NUL.
Text FittingBuffer(const Text& text, std::int64_t capacity);

}  // namespace pointalk::sim
