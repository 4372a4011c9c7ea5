// Pointer, keys and screen as the system tells them.
#pragma once

#include "platform/input.h"
#include "win32/mouse_reports.h"

namespace pointalk::win32 {

class WinInput final : public Input {
 public:
  // Mouse reports go to the form's window as kMouseReport messages.
  explicit WinInput(HWND form) : reports_(form) {}

  std::optional<Point> PointerPosition() override;
  bool KeyDown(int virtualKey) override;
  std::optional<ScreenSize> Screen() override;
  bool ReportMouse(bool on) override;

 private:
  MouseReports reports_;
};

}  // namespace pointalk::win32
