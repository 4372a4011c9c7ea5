#include "linux/accessibility.h"

#include <algorithm>

#include "linux/roles.h"

namespace pointalk::linux {

// The window under the point has just been asked for, and its object with it.
std::optional<AccessibleFacts> LinuxAccessibility::ObjectAt(Point screen) {
  const Thing& thing = things_.Again(screen);
  if (!thing.hasFacts) return std::nullopt;
  return thing.facts;
}

bool LinuxAccessibility::QueryPending(WindowHandle window) {
  const Thing* const thing = things_.Find(window);
  return thing != nullptr && things_.IsSilent(thing->process);
}

Text LinuxAccessibility::RoleText(std::int32_t role, int capacity) {
  return Text(SpokenRoleText(role).substr(0, static_cast<std::size_t>(std::max(capacity, 0))));
}

}  // namespace pointalk::linux
