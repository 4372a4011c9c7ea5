// The accessible objects of the simulated desktop.
#pragma once

#include <vector>

#include "platform/accessibility.h"
#include "sim/machine.h"

namespace pointalk::sim {

class SimAccessibility final : public Accessibility {
 public:
  explicit SimAccessibility(Machine& machine) : machine_(machine), roles_{machine.setup.roleZero} {}

  std::optional<AccessibleFacts> ObjectAt(Point screen) override;
  bool QueryPending(WindowHandle) override { return false; }
  Text RoleText(std::int32_t role, int capacity) override;

 private:
  std::int32_t RoleNumber(const Text& role);

  Machine& machine_;
  std::vector<Text> roles_;  // the texts of the roles met so far, by their numbers
};

}  // namespace pointalk::sim
