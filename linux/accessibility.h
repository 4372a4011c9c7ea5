// The accessible object at a point.
#pragma once

#include "linux/things.h"
#include "platform/accessibility.h"

namespace pointalk::linux {

class LinuxAccessibility final : public Accessibility {
 public:
  explicit LinuxAccessibility(Things& things) : things_(things) {}

  std::optional<AccessibleFacts> ObjectAt(Point screen) override;
  bool QueryPending(WindowHandle window) override;
  Text RoleText(std::int32_t role, int capacity) override;

 private:
  Things& things_;
};

}  // namespace pointalk::linux
