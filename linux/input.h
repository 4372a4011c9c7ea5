// Pointer, keys and screen as the X server tells them.
#pragma once

#include <optional>
#include <vector>

#include "linux/input_watcher.h"
#include "linux/x_display.h"
#include "platform/input.h"

namespace pointalk::linux {

class LinuxInput final : public Input {
 public:
  LinuxInput(XDisplay& display, InputWatcher& watcher) : display_(display), watcher_(watcher) {}

  std::optional<Point> PointerPosition() override;
  bool KeyDown(int virtualKey) override;
  std::optional<ScreenSize> Screen() override;
  bool ReportMouse(bool on) override;

 private:
  friend class StillInput;

  std::optional<XDisplay::Pointer> Pointer() { return still_ ? *still_ : display_.AskPointer(); }

  XDisplay& display_;
  InputWatcher& watcher_;
  std::optional<std::optional<XDisplay::Pointer>> still_;
  std::vector<int> pressed_;  // keys that were pressed before the input stood still, and not yet asked for
};

// Pointer and keys stand still for as long as this lives: what happens meanwhile is told afterwards. A tick
// asks other programs, and a key that goes down while they answer is to be seen by the next one from its
// beginning.
class StillInput {
 public:
  explicit StillInput(LinuxInput& input);
  ~StillInput() { input_.still_.reset(); }
  StillInput(const StillInput&) = delete;
  StillInput& operator=(const StillInput&) = delete;

 private:
  LinuxInput& input_;
};

}  // namespace pointalk::linux
