// Keeps the system from slowing the program down because its window is minimised.
#pragma once

namespace pointalk::win32 {

// Has no effect on a system without throttling.
void OptOutOfThrottling();

}  // namespace pointalk::win32
