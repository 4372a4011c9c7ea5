// The system timer and the delay loop.
#pragma once

#include <chrono>

#include "platform/clock.h"

namespace pointalk::linux {

// Reads the time of day once and counts on from there by the machine's steady clock, so that the times
// measured here stay right when the system's time is set.
class LinuxClock final : public Clock {
 public:
  LinuxClock();

  // Takes this moment as the beginning of a second, less than one away from the true time of day: the delay
  // loop is measured until a whole second turns, and begun anywhere else it would count the passes of half a
  // second or of one and a half. Never the day's last second, which has no next one.
  void BeginSecond();

  double SecondsSinceMidnight() override;

  // Sleeps for a moment. A loop that counted would keep a processor busy in which other programs make the
  // answers that we wait for.
  double BeginPasses() override;
  double SpinPass() override;

 private:
  using Moment = std::chrono::steady_clock::time_point;

  double SecondsAt(Moment moment) const;

  Moment start_;
  Moment passEnd_;  // of the last pass
  double startSeconds_ = 0;
};

}  // namespace pointalk::linux
