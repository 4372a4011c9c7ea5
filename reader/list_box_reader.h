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
  ListBoxReader(ControlMessages& messages, WindowTree& windows, EventSounds& sounds,
                ObjectSpeech& objectSpeech)
      : messages_(messages), windows_(windows), sounds_(sounds), objectSpeech_(objectSpeech) {}

  void ReadListBox(const Spot& spot);

 private:
  ControlMessages& messages_;
  WindowTree& windows_;
  EventSounds& sounds_;
  ObjectSpeech& objectSpeech_;

  std::int32_t lastTopIndex_ = 0;
  std::int32_t lastItemIndex_ = 0;

  void PlayScrolling(WindowHandle window);
  Text ItemText(WindowHandle window, std::int32_t item);
};

}  // namespace pointalk
