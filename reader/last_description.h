// What is kept from one description to the next. The describer alone writes it.
#pragma once

#include "platform/types.h"
#include "text/text.h"

namespace pointalk {

struct LastDescription {
  // The window under the pointer, however far its description went.
  WindowHandle mLastWindow = 0;
  bool mOverDesktop = false;     // it is the desktop's icon list
  bool mWasOverDesktop = false;  // so was the one before; false again where no list view was read
  Text mOfficialClassName;       // class name of mLastWindow, as given

  // The window of the last description that went as far as the readers; those of learnt classes do not.
  WindowHandle mLastDescribedWindow = 0;
  bool mListViewRead = false;  // the list-view reader ran in the last description

  // Of the object that was asked last: its window may be an earlier one than the above, since objects of
  // learnt classes are not asked.
  Text maccRole;
  Text maccDescription;
  Text maccText;

  Text mTopWindowName;      // the name of the top window to be told on request; each query empties it
  Text mLastTopWindowName;  // the one that was last compared, and announced where it was a new one

  Text mSpareText;  // Kept: nothing reads it.
};

}  // namespace pointalk
