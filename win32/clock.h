// The system timer and the delay loop.
#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace pointalk::win32 {

// Reads the time of day once and counts on from there with the monotonic performance counter, so that what is
// measured stays right when the system's time is changed.
class WinClock final : public Clock {
 public:
  WinClock();

  // Takes this moment as the beginning of a second, less than one away from the true time of day. The delay
  // loop is measured until a whole second turns: begun anywhere else it would count the passes of half a
  // second or of one and a half, and every wait would be wrong by that. Never the day's last second, which
  // has no next one.
  void BeginSecond();

  double SecondsSinceMidnight() override;
  double BeginPasses() override;

  // Keeps the processor busy until the end of the pass, so that a wait of some milliseconds is exact. Later
  // in a long loop it sleeps, and may come back up to 16 ms late; the next passes make up for that.
  double SpinPass() override;

 private:
  double SecondsAt(double ticks) const;

  double ticksPerSecond_;
  double startTicks_ = 0;
  double startSeconds_ = 0;
  double passEnd_ = 0;  // of the last pass, in ticks
  int passes_ = 0;      // of this loop
};

}  // namespace pointalk::win32
