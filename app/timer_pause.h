// Switches the poll timer off for as long as it lives, and then back to what it was.
#pragma once

#include "platform/panel.h"

namespace pointalk {

class TimerPause {
 public:
  explicit TimerPause(Panel& thePanel) : panel(thePanel), before(panel.TimerEnabled()) {
    panel.SetTimerEnabled(false);
  }
  ~TimerPause() { panel.SetTimerEnabled(before); }
  TimerPause(const TimerPause&) = delete;
  TimerPause& operator=(const TimerPause&) = delete;

 private:
  Panel& panel;
  bool before;
};

}  // namespace pointalk
