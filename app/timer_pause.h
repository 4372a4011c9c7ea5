// Switches the poll timer off for as long as it lives.
#pragma once

#include "platform/panel.h"

namespace pointalk {

class TimerPause {
 public:
  // How the timer is left, whatever happened meanwhile.
  enum class Then { kAsBefore, kOn };

  explicit TimerPause(Panel& thePanel, Then then = Then::kAsBefore)
      : panel(thePanel), after(then == Then::kOn || panel.TimerEnabled()) {
    panel.SetTimerEnabled(false);
  }
  ~TimerPause() { panel.SetTimerEnabled(after); }
  TimerPause(const TimerPause&) = delete;
  TimerPause& operator=(const TimerPause&) = delete;

 private:
  Panel& panel;
  bool after;
};

}  // namespace pointalk
