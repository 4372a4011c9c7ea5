// A property of an engine that holds a whole number.
#pragma once

#include "wine/voice/late_bound.h"

namespace pointalk::wine {

// Gets or puts `number` and writes the line `what` about it. A new value that is no number fails and changes
// nothing.
HRESULT RecordedNumber(const char* what, LONG& number, Access access, const Arguments& arguments,
                       VARIANT& result);

}  // namespace pointalk::wine
