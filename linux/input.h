// Pointer, keys and screen as the X server tells them.
#pragma once

#include <memory>

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
  XDisplay& display_;
  InputWatcher& watcher_;
};

}  // namespace pointalk::linux
