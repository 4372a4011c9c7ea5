#include "sim/machine.h"

#include <utility>

namespace pointalk::sim {

Machine::Machine(Script script)
    : setup(std::move(script.machine)),
      desktop(script.windows, std::move(script.objects)),
      clock(setup.clock),
      keys() {}

void Machine::Pass(std::int64_t microseconds) {
  constexpr std::int64_t kDay = 86'400'000'000;
  clock += microseconds;
  if (clock >= kDay) clock %= kDay;
}

void Machine::LeaveProgram(bool killed) {
  programRuns = false;
  throw ProgramGone{killed};
}

}  // namespace pointalk::sim
