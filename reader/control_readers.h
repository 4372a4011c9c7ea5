// Reads controls by their accessible texts, and by their titles where there are none.
#pragma once

#include <cstdint>

#include "input/clicks.h"
#include "reader/object_speech.h"
#include "reader/spot.h"
#include "reader/window_title.h"
#include "tones/event_sounds.h"

namespace pointalk {

class ControlReaders {
 public:
  ControlReaders(const Clicks& clicks, EventSounds& eventSounds, ObjectSpeech& objectSpeech,
                 WindowTitle& windowTitle)
      : clicks_(clicks), eventSounds_(eventSounds), objectSpeech_(objectSpeech), windowTitle_(windowTitle) {}

  void ReadAccessibleControl(const Spot& spot);
  void ReadStaticControl(const Spot& spot) { ReadAccessibleControl(spot); }
  void ReadComboBox(const Spot& spot) { ReadAccessibleControl(spot); }
  void ReadTreeView(const Spot& spot) { ReadAccessibleControl(spot); }
  void ReadButton(const Spot& spot);

 private:
  const Clicks& clicks_;
  EventSounds& eventSounds_;
  ObjectSpeech& objectSpeech_;
  WindowTitle& windowTitle_;

  // The point's x less its y at the last reading, if that was of a scroll thumb; else kNoThumb. Forgotten
  // when a reading begins while the button is up. A thumb whose difference happens to be kNoThumb counts as
  // none.
  static constexpr std::int64_t kNoThumb = -65535;
  std::int64_t keptThumbPosition_ = kNoThumb;

  bool ReadScrollBar(const Spot& spot);
  void PlayThumb(std::int64_t position);
};

}  // namespace pointalk
