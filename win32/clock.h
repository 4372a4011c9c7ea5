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
  void SpinPass() override;

 private:
  double ticksPerSecond_;
  std::int64_t startTicks_ = 0;
  double startSeconds_ = 0;
  volatile std::uint64_t spun_ = 1;  // what the loop came to; the compiler must think that somebody reads it
};

}  // namespace pointalk::win32
