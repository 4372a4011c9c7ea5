// Messages whose sender hands over memory that it had here: a hit test, an item, a point.
#pragma once

#include <windows.h>

namespace pointalk::target {

// While one lives, its thread answers the message, and dies of the memory that is gone: the process ends with
// exit status 4. A window procedure's access violation would end it on Windows, and be passed over by Wine.
class UseOfGivenMemory {
 public:
  explicit UseOfGivenMemory(UINT message);
  ~UseOfGivenMemory();
  UseOfGivenMemory(const UseOfGivenMemory&) = delete;
  UseOfGivenMemory& operator=(const UseOfGivenMemory&) = delete;
};

// Before the first message.
void WatchGivenMemory();

}  // namespace pointalk::target
