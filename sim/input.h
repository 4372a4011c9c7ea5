// The simulated pointer, keys and screen.
#pragma once

#include "platform/input.h"
#include "sim/machine.h"

namespace pointalk::sim {

class SimInput final : public Input {
 public:
  explicit SimInput(Machine& machine) : machine_(machine) {}

  std::optional<Point> PointerPosition() override { return machine_.pointer; }
  bool KeyDown(int virtualKey) override;
  std::optional<ScreenSize> Screen() override;
  bool ReportMouse(bool on) override;

  // True while the form wants the hook's reports.
  bool ReportsMouse() const { return reportsMouse_; }

 private:
  Machine& machine_;
  bool reportsMouse_ = false;
};

}  // namespace pointalk::sim
