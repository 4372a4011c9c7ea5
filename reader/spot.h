// What is described, as values: they are made once for a description and then only read.
#pragma once

#include "platform/types.h"
#include "text/text.h"

namespace pointalk {

// What an accessible object tells of itself; a text that could not be read is empty.
struct AccessibleTexts {
  Text maccName{};
  Text maccRole{};  // the platform's text for the role
  Text maccDescription{};
  Text maccValue{};
  Text maccText{};  // the one text of the above that is chosen to be spoken
};

// A place on the screen, and what was found there.
struct Spot {
  Point point{};            // screen pixels
  WindowHandle window = 0;  // under the point; 0 where there is none
  Text className{};         // of the window, as the platform gives it
  Text lowerClassName{};
  bool overDesktop = false;         // the window is the desktop's icon list
  bool wasOverDesktop = false;      // so was the window of the description before
  WindowHandle previousWindow = 0;  // of the description before
  AccessibleTexts texts{};
};

}  // namespace pointalk
