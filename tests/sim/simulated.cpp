// Made here once, so that not every test file holds the making of a whole machine.
#include "tests/sim/simulated.h"

#include "sim/script.h"

namespace pointalk::sim {

Simulated::Simulated(std::string_view script) : machine(ReadScript(script)), platform(machine) {}

Simulated::~Simulated() = default;

}  // namespace pointalk::sim
