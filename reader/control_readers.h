// Reads controls by their accessible texts, and by their titles where there are none.
#pragma once

#include <cstdint>

#include "app/input_state.h"
#include "reader/object_description.h"
#include "reader/object_speech.h"
#include "reader/spot.h"
#include "reader/window_title.h"
#include "tones/event_sounds.h"

namespace pointalk {

class ControlReaders {
 public:
  ControlReaders(const InputState& theInput, const ObjectDescription& theDescription, ObjectSpeech& theSpeech,
                 WindowTitle& theTitles, EventSounds& theSounds)
      : input(theInput),
        description(theDescription),
        speech(theSpeech),
        titles(theTitles),
        sounds(theSounds) {}

  // Each gives true when it spoke for the spot.
  bool ReadAccessibleControl(WindowHandle window);
  bool ReadStaticControl(const Spot& spot) { return ReadAccessibleControl(spot.window); }
  bool ReadComboBox(const Spot& spot) { return ReadAccessibleControl(spot.window); }
  bool ReadTreeView(const Spot& spot) { return ReadAccessibleControl(spot.window); }
  bool ReadButton(const Spot& spot);

 private:
  const InputState& input;
  const ObjectDescription& description;
  ObjectSpeech& speech;
  WindowTitle& titles;
  EventSounds& sounds;

  // The pointer's x less its y where a scroll thumb was read last while the button was down. Of all
  // differences the one that stands for none is taken for none wherever it is met.
  static constexpr std::int64_t kNoThumb = -65535;
  std::int64_t keptThumbPosition = kNoThumb;

  bool ReadScrollBar();
  void PlayThumb(std::int64_t position);
};

}  // namespace pointalk
