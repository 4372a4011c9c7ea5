// When UI Automation is asked beside Active Accessibility, and what is made of both answers.
#pragma once

#include <optional>

#include "platform/accessibility.h"

namespace pointalk::win32 {

struct AutomationAnswer {
  AccessibleFacts facts;
  bool isPassword = false;  // or may be one
};

// Whether what an accessible object said is too little, or is said by a window that stands for many things:
// today's programs and the task bar draw their controls in such windows, and tell of them by UI Automation
// alone. `className` is that of the window at the place.
bool WantsAutomation(const std::optional<AccessibleFacts>& said, TextView className);

// What UI Automation does not give stays what the object said.
AccessibleFacts Joined(std::optional<AccessibleFacts> said, AutomationAnswer more);

}  // namespace pointalk::win32
