// The question to the accessible object at a point. It has no time limit of its own.
#pragma once

#include <functional>
#include <optional>

#include "platform/accessibility.h"
#include "win32/automation_question.h"

namespace pointalk::win32 {

// Given the answer of the accessible object when UI Automation is to be asked as well, which may take longer.
using EarlyAnswer = std::function<void(const std::optional<AccessibleFacts>&)>;

// No value when there is no object. COM has to be there on the thread.
std::optional<AccessibleFacts> AskObjectAt(Point screen, AutomationQuestion& automation,
                                           const EarlyAnswer& early);

}  // namespace pointalk::win32
