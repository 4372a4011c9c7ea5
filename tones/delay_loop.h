// Waiting by a loop that is measured once at start-up.
#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace pointalk {

class DelayLoop {
 public:
  explicit DelayLoop(Clock& clock) : clock_(clock) {}

  // Counts the passes until the whole second nearest to one second from now has gone by: half a second to one
  // and a half. Over midnight the count runs out instead.
  void CalibrateDelayLoop();

  // Waits about that many milliseconds without letting any message be handled; returns at once for 0 or less.
  void BusyWait(std::int32_t milliseconds);

 private:
  Clock& clock_;
  std::int32_t mDelayLoopsPerSecond = 0;  // passes; 1,000,001 when the count ran out
};

}  // namespace pointalk
