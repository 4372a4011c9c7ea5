// What the user does, as the poll tick and the mouse reports leave it for the other rooms.
#pragma once

#include <cstdint>

#include "text/text.h"

namespace pointalk {

struct InputState {
  // Keys as last read, and as they were one tick before. Speaking reads Shift anew, describing Control and
  // Alt.
  bool mCtrlDown = false;
  bool mShiftDown = false;
  bool mAltDown = false;
  bool mCtrlDownBefore = false;
  bool mShiftDownBefore = false;
  bool mAltDownBefore = false;

  // Pointer in screen pixels, as last read.
  std::int32_t mCursorX = 0;
  std::int32_t mCursorY = 0;

  bool mButtonDown = false;       // the left button, by the mouse reports
  Text mPendingEventText;         // name of a click that waits to be spoken
  bool mSpellingBlocked = false;  // a held Shift does not spell while this is set
};

}  // namespace pointalk
