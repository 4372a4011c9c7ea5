// Seam: the system timer and the delay loop that is measured with it.
#pragma once

namespace pointalk {

class Clock {
 public:
  virtual ~Clock() = default;

  // Seconds since midnight, 0 to below 86,400.
  virtual double SecondsSinceMidnight() = 0;

  // One pass of the delay loop: 1,000 iterations that only take time. A million passes take more
  // than one and a half seconds on every machine.
  virtual void SpinPass() = 0;
};

}  // namespace pointalk
