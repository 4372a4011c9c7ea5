// The simulated machine's version, paths, clipboard and shell.
#pragma once

#include "platform/system.h"
#include "sim/machine.h"

namespace pointalk::sim {

class SimSystem final : public System {
 public:
  explicit SimSystem(Machine& machine) : machine_(machine) {}

  std::optional<SystemVersion> Version() override;
  Text ProgramFolder() override { return u"C:\\Pointalk"; }
  Text ShortPath(TextView path, int capacity) override;
  bool SetClipboard(TextView text) override;
  bool ShellOpen(TextView operation, TextView file, TextView parameters, TextView directory,
                 int show) override;
  [[noreturn]] void EndProgram() override { machine_.LeaveProgram(false); }

 private:
  Machine& machine_;
};

}  // namespace pointalk::sim
