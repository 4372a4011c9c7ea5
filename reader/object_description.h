// The object last described, in the words of its window and of its accessible object.
#pragma once

#include "platform/text.h"

namespace pointalk {

struct ObjectDescription {
  Text mOfficialClassName;  // class name of the window under the pointer, as the platform gives it
  Text maccName;
  Text maccRole;  // the platform's text for the role
  Text maccDescription;
  Text maccValue;
  Text maccText;        // the one text chosen to be spoken
  Text maccParent;      // part of a crash report; nothing fills it
  Text mTopWindowName;  // the top-level window that holds the object, where it is known
  Text mSpareText;      // emptied over editable text; nothing else uses it
};

}  // namespace pointalk
