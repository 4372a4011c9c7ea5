// The poll tick: clicks, keys, event sounds, and the pointer.
#pragma once

#include <cstdint>

#include "app/input_state.h"
#include "platform/clock.h"
#include "platform/input.h"
#include "platform/panel.h"
#include "reader/object_describer.h"
#include "reader/object_description.h"
#include "reader/spot.h"
#include "speech/pronouncer.h"
#include "speech/speaker.h"
#include "tones/event_sounds.h"
#include "tones/midi_port.h"
#include "tones/position_tones.h"

namespace pointalk {

class PollLoop {
 public:
  struct Seam {
    Input& keys;
    Panel& panel;
    Clock& clock;
  };

  PollLoop(const Seam& theSeam, InputState& theInput, ObjectDescription& theDescription,
           SpotHistory& theHistory, Pronouncer& thePronouncer, Speaker& theSpeaker, MidiPort& thePort,
           PositionTones& theTones, EventSounds& theSounds, ObjectDescriber& theDescriber)
      : seam(theSeam),
        input(theInput),
        description(theDescription),
        history(theHistory),
        pronouncer(thePronouncer),
        speaker(theSpeaker),
        port(thePort),
        tones(theTones),
        sounds(theSounds),
        describer(theDescriber) {}

  // One tick, every 30 ms.
  void Timer1_Timer();

  // The screen's size as it is now; later changes of it are not seen.
  void MeasureScreen();

 private:
  Seam seam;
  InputState& input;
  ObjectDescription& description;
  SpotHistory& history;
  Pronouncer& pronouncer;
  Speaker& speaker;
  MidiPort& port;
  PositionTones& tones;
  EventSounds& sounds;
  ObjectDescriber& describer;

  Text mLastClickText;        // the click that waits, as it was first seen
  double mLastClickTime = 0;  // and when, in seconds since midnight
  std::int32_t mLastCursorX = 0;
  std::int32_t mLastCursorY = 0;
  std::int32_t mRestTicks = 0;  // in a row without movement, at most 11
  double mScreenWidthPx = 0;    // 0 while not known
  double mScreenHeightPx = 0;
  bool mDescribeArmed = false;  // not resting; Control identifies only then
  bool mTonesSounding = false;

  void SpeakClick();
  void ReadKeys();
  bool AnswerControl();
  void Identify();
  void NameTopWindow();
  void PollPointer();
  bool Rests();
  void OnPointerRest() {}  // a place to add to
};

}  // namespace pointalk
