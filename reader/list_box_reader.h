// Reads the items of list boxes.
#pragma once

#include <cstdint>

#include "platform/control_messages.h"
#include "platform/window_tree.h"
#include "reader/object_speech.h"
#include "reader/spot.h"
#include "tones/event_sounds.h"

namespace pointalk {

class ListBoxReader {
 public:
  ListBoxReader(ControlMessages& theMessages, WindowTree& theWindows, ObjectSpeech& theSpeech,
                EventSounds& theSounds)
      : messages(theMessages), windows(theWindows), speech(theSpeech), sounds(theSounds) {}

  // True when an item was said.
  bool ReadListBox(const Spot& spot);

 private:
  ControlMessages& messages;
  WindowTree& windows;
  ObjectSpeech& speech;
  EventSounds& sounds;

  std::int32_t lastTopIndex = 0;
  std::int32_t lastItemIndex = 0;

  void PlayScrolling(WindowHandle window);
  Text ItemText(WindowHandle window, std::int32_t item);
};

}  // namespace pointalk
