// Seam: the system timer and the delay loop that is measured with it.
#pragma once

namespace pointalk {

class Clock {
 public:
  virtual ~Clock() = default;

  // Seconds since midnight, 0 to below 86,400.
  virtual double SecondsSinceMidnight() = 0;

  // The delay loop begins now. Gives the time now.
  virtual double BeginPasses() = 0;

  // One pass of the delay loop, which only takes time: always the same. It begins where the pass before it or
  // BeginPasses ended, so that the next passes make up for a processor that was busy elsewhere. Gives the
  // time of its end. A million passes take more than one and a half seconds.
  virtual double SpinPass() = 0;
};

}  // namespace pointalk
