// What the voice sounds through.
#pragma once

#include "win32/late_bound.h"

namespace pointalk::win32 {

// Has the output of a SAPI 5 voice fall silent at once. The voices of Windows 8 and later go on for a while
// when a text only cuts off what is being said. A voice that does not give its output is left alone.
void StopOutput(const LateBound& voice);

}  // namespace pointalk::win32
