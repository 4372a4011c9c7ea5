// Dialogs that are answered by the script.
#pragma once

#include "platform/dialogs.h"
#include "sim/machine.h"

namespace pointalk::sim {

// Both throw ScriptError where the next answer is one for the other kind of dialog, and where a step asks
// without end.
class SimDialogs final : public Dialogs {
 public:
  explicit SimDialogs(Machine& machine) : machine_(machine) {}

  int AskByBox(TextView text, TextView title, int style) override;
  Text AskByInput(TextView prompt, TextView title, TextView proposed) override;

 private:
  // No value when the script has no answer left.
  std::optional<Answer> NextAnswer();

  Machine& machine_;
};

}  // namespace pointalk::sim
