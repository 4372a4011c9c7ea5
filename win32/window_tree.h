// The windows of the desktop.
#pragma once

#include "platform/window_tree.h"
#include "win32/answer_time.h"
#include "win32/window_scale.h"

namespace pointalk::win32 {

class WinWindowTree final : public WindowTree {
 public:
  explicit WinWindowTree(AnswerTime& answerTime) : answerTime_(answerTime) {}

  WindowHandle WindowAt(Point screen) override;
  std::optional<Text> ClassOf(WindowHandle window, int limit) override;
  WindowHandle ParentOf(WindowHandle window) override;
  WindowHandle FirstChildOf(WindowHandle window) override;
  WindowHandle FindTopLevel(TextView className, TextView title) override;
  std::optional<ProcessId> ProcessOf(WindowHandle window) override;
  std::optional<Point> ToClient(WindowHandle window, Point screen) override;
  Text CaptionOf(WindowHandle window, int capacity) override;

 private:
  AnswerTime& answerTime_;
  WindowScale scale_;
};

}  // namespace pointalk::win32
