// Keeps the system from slowing the program down because its window is minimised.
#pragma once

namespace pointalk::win32 {

// Does nothing on systems that do not do so.
void RefuseThrottling();

}  // namespace pointalk::win32
