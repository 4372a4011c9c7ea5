// The question to the accessible object at a point. It has no time limit of its own.
#pragma once

#include <optional>

#include "platform/accessibility.h"

namespace pointalk::win32 {

// No value when there is no object. COM has to be there on the thread.
std::optional<AccessibleFacts> AskObjectAt(Point screen);

}  // namespace pointalk::win32
