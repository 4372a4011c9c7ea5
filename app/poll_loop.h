// The poll tick: clicks, keys, event sounds, and the pointer.
#pragma once

#include <cstdint>

#include "input/clicks.h"
#include "input/keys.h"
#include "platform/clock.h"
#include "platform/input.h"
#include "platform/panel.h"
#include "reader/object_describer.h"
#include "speech/speaker.h"
#include "tones/event_sounds.h"
#include "tones/midi_port.h"
#include "tones/position_tones.h"

namespace pointalk {

class PollLoop {
 public:
  struct Seam {
    Input& input;
    Panel& panel;
    Clock& clock;
  };

  PollLoop(const Seam& seam, Keys& keys, Clicks& clicks, Speaker& speaker, MidiPort& midiPort,
           PositionTones& positionTones, EventSounds& eventSounds, ObjectDescriber& objectDescriber)
      : seam_(seam),
        keys_(keys),
        clicks_(clicks),
        speaker_(speaker),
        midiPort_(midiPort),
        positionTones_(positionTones),
        eventSounds_(eventSounds),
        objectDescriber_(objectDescriber) {}

  // One tick, every 30 ms.
  void Timer1_Timer();

  // The screen's size as it is now; later changes of it are not seen.
  void MeasureScreen();

 private:
  Seam seam_;
  Keys& keys_;
  Clicks& clicks_;
  Speaker& speaker_;
  MidiPort& midiPort_;
  PositionTones& positionTones_;
  EventSounds& eventSounds_;
  ObjectDescriber& objectDescriber_;

  std::int32_t mCursorX = 0;  // of the pointer in screen pixels, as last read
  std::int32_t mCursorY = 0;
  std::int32_t mLastCursorX = 0;  // as they were at the last tick that did not rest
  std::int32_t mLastCursorY = 0;
  std::int32_t mRestTicks = 0;  // in a row without movement, at most 11
  double mScreenWidthPx = 0;    // 0 while not known
  double mScreenHeightPx = 0;
  bool mDescribeArmed = false;  // not resting; Control identifies only then
  bool mTonesSounding = false;  // since a tick that did not rest

  void SpeakClick();
  bool AnswerControl();
  void PollPointer();
  bool Rests();
  void OnPointerRest() {}  // empty: whatever is to happen at rest may be added here
};

}  // namespace pointalk
