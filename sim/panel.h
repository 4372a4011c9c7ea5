// The control panel's window on the simulated desktop.
#pragma once

#include <map>

#include "platform/panel.h"
#include "sim/machine.h"

namespace pointalk::sim {

class SimPanel final : public Panel {
 public:
  explicit SimPanel(Machine& machine);

  void Minimise() override;
  bool TimerEnabled() override { return timerEnabled_; }
  void SetTimerEnabled(bool enabled) override { timerEnabled_ = enabled; }
  void SetTimerInterval(int) override {}  // the script's ticks are 30 ms apart whatever is set
  bool MenuChecked(TextView name) override;
  void SetMenuChecked(TextView name, bool checked) override;
  void LetMessagesRun() override {}  // no message waits: events come from the script's steps only

 private:
  Machine& machine_;
  bool minimised_ = false;
  bool timerEnabled_ = false;
  std::map<TextView, bool> checked_;  // by the names of the menu's entries
};

}  // namespace pointalk::sim
