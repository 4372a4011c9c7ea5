// The question to the accessible object at a point. Nothing in it has a time limit.
#pragma once

#include <optional>

#include "platform/accessibility.h"

namespace pointalk::win32 {

// Nothing when there is no object. COM has to be there on the thread.
std::optional<AccessibleFacts> AskObjectAt(Point screen);

}  // namespace pointalk::win32
