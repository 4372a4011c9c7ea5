// Switches the poll timer off for as long as it lives.
#pragma once

#include "platform/panel.h"

namespace pointalk {

class TimerPause {
 public:
  // How the timer is left, whatever happened meanwhile.
  enum class Then { kAsBefore, kOn };

  explicit TimerPause(Panel& panel, Then then = Then::kAsBefore)
      : panel_(panel), after_(then == Then::kOn || panel.TimerEnabled()) {
    panel_.SetTimerEnabled(false);
  }
  ~TimerPause() { panel_.SetTimerEnabled(after_); }
  TimerPause(const TimerPause&) = delete;
  TimerPause& operator=(const TimerPause&) = delete;

 private:
  Panel& panel_;
  bool after_;
};

}  // namespace pointalk
