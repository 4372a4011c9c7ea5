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
  ListBoxReader(ControlMessages& messages, WindowTree& windows, EventSounds& eventSounds,
                ObjectSpeech& objectSpeech)
      : messages_(messages), windows_(windows), eventSounds_(eventSounds), objectSpeech_(objectSpeech) {}

  void ReadListBox(const Spot& spot);

 private:
  ControlMessages& messages_;
  WindowTree& windows_;
  EventSounds& eventSounds_;
  ObjectSpeech& objectSpeech_;

  // Of the list box that was read last, whichever that was.
  std::int32_t lastTopIndex_ = 0;   // of the item at its top
  std::int32_t lastItemIndex_ = 0;  // of the item that was said

  void PlayScrolling(WindowHandle window);
  Text ItemText(WindowHandle window, std::int32_t item);
};

}  // namespace pointalk
