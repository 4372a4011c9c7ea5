// The simulated system timer.
#pragma once

#include "platform/clock.h"
#include "sim/machine.h"

namespace pointalk::sim {

class SimClock final : public Clock {
 public:
  explicit SimClock(Machine& machine) : machine_(machine) {}

  double SecondsSinceMidnight() override { return static_cast<double>(machine_.clock) / 1e6; }
  double BeginPasses() override { return SecondsSinceMidnight(); }
  double SpinPass() override {
    machine_.Pass(machine_.setup.spinMicroseconds);
    return SecondsSinceMidnight();
  }

 private:
  Machine& machine_;
};

}  // namespace pointalk::sim
