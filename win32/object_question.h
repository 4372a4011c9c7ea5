// The question to the accessible object at a point. It has no time limit of its own.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "platform/accessibility.h"
#include "win32/automation_question.h"

namespace pointalk::win32 {

struct ObjectAnswer {
  std::optional<AccessibleFacts> facts;  // no value when there is no object
  HWND unresponsive = nullptr;           // a window that did not answer a message in time
};

// Given the answer of the accessible object when UI Automation is to be asked as well, which may take longer.
using EarlyAnswer = std::function<void(const std::optional<AccessibleFacts>&)>;

// COM has to be there on the thread.
ObjectAnswer AskObjectAt(Point screen, AutomationQuestion& automation, const EarlyAnswer& early);

}  // namespace pointalk::win32
