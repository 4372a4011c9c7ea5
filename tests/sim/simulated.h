// A simulated machine with its seam, made from a script, for tests that ask the seam themselves.
#pragma once

#include <string>
#include <string_view>

#include "sim/machine.h"
#include "sim/sim_platform.h"

namespace pointalk::sim {

struct Simulated {
  explicit Simulated(std::string_view script = "{}");
  ~Simulated();
  Simulated(const Simulated&) = delete;
  Simulated& operator=(const Simulated&) = delete;

  const std::string& transcript() const { return machine.transcript.Lines(); }

  Machine machine;
  SimPlatform platform;
};

}  // namespace pointalk::sim
