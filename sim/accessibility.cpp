#include "sim/accessibility.h"

#include <algorithm>

namespace pointalk::sim {

std::optional<AccessibleFacts> SimAccessibility::ObjectAt(Point screen) {
  const Window* const window = machine_.desktop.VisibleAt(screen);
  if (window != nullptr && window->hung) return std::nullopt;
  const auto& objects = machine_.desktop.objects;
  const auto object = std::find_if(objects.rbegin(), objects.rend(), [&](const AccessibleObject& candidate) {
    return candidate.place.Holds(screen);
  });
  if (object == objects.rend() || object->fails) return std::nullopt;
  if (object->kills) machine_.LeaveProgram(true);
  AccessibleFacts facts{object->name, std::nullopt, object->description, std::nullopt};
  if (!object->isProtected) facts.value = object->value;
  if (object->role) facts.role = RoleNumber(*object->role);
  return facts;
}

Text SimAccessibility::RoleText(std::int32_t role, int capacity) {
  const bool known = role >= 0 && static_cast<std::size_t>(role) < roles_.size();
  if (!known || capacity <= 0) return {};
  return roles_[static_cast<std::size_t>(role)].substr(0, static_cast<std::size_t>(capacity));
}

std::int32_t SimAccessibility::RoleNumber(const Text& role) {
  const auto found = std::find(roles_.begin() + 1, roles_.end(), role);
  if (found != roles_.end()) return static_cast<std::int32_t>(found - roles_.begin());
  roles_.push_back(role);
  return static_cast<std::int32_t>(roles_.size() - 1);
}

}  // namespace pointalk::sim
