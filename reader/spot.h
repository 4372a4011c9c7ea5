// Where the describer is: the window under the pointer and what came of recognising it.
#pragma once

#include "platform/types.h"

namespace pointalk {

// What the readers are given.
struct Spot {
  Point pointer;            // screen pixels
  WindowHandle window = 0;  // under the pointer
};

// What the describer keeps of its spots for the readers and the poll loop.
struct SpotHistory {
  WindowHandle mLastWindow = 0;
  WindowHandle mPreviousWindow = 0;  // of the description before
  bool mOverDesktop = false;         // the window is the desktop's icon list
  bool mWasOverDesktop = false;      // at the description before
  bool mListViewRead = false;        // the list-view reader ran in this description
};

}  // namespace pointalk
