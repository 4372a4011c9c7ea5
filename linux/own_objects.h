// The objects of the program's own windows. They are asked for here and not over the bus, where the form
// would have to answer itself while it waits.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/accessibility.h"
#include "platform/types.h"

namespace pointalk::linux {

struct OwnObject {
  std::uint32_t number = 0;  // its own among those of this program
  AccessibleFacts facts;
  Point origin;  // on the screen
};

// The deepest object under a point of the screen; no value where none of ours is there.
std::optional<OwnObject> OwnObjectAt(Point screen);

}  // namespace pointalk::linux
