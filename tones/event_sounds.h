// Short sounds that mark events: a new window, a list, an icon, scrolling.
#pragma once

#include <cstdint>

#include "text/text.h"
#include "tones/delay_loop.h"
#include "tones/midi_port.h"

namespace pointalk {

class EventSounds {
 public:
  EventSounds(MidiPort& midiPort, DelayLoop& delayLoop) : midiPort_(midiPort), delayLoop_(delayLoop) {}

  // Plays the sound of an event by its exact name; any other name strikes note 0 of channel 0 at velocity 0.
  // Silent while the user has MIDI switched off. The note sounds on until it is stopped.
  void PlayEarcon(TextView eventName);

  void StopEarcon() { midiPort_.StopEventChannels(); }

  // Called once a tick: ends a sound on the third tick after its start.
  void CountTick();

 private:
  MidiPort& midiPort_;
  DelayLoop& delayLoop_;
  std::int32_t mEarconTicks = 0;  // since the last sound started
  bool mOnDesktopIcon = false;    // Kept: nothing reads it.

  void StrikeEvent(std::int32_t instrument, Note note);
  void PlayScroll(int first, int last);
};

}  // namespace pointalk
