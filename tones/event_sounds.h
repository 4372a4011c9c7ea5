// Short sounds that mark events: a new window, a list, an icon, scrolling.
#pragma once

#include <cstdint>

#include "app/delay_loop.h"
#include "platform/text.h"
#include "tones/midi_port.h"

namespace pointalk {

class EventSounds {
 public:
  EventSounds(MidiPort& thePort, DelayLoop& theDelay) : port(thePort), delay(theDelay) {}

  // Plays the sound of an event by its exact name; any other name strikes whatever channel 0 holds. Silent
  // while the user has MIDI switched off. The note sounds on until it is stopped.
  void PlayEarcon(TextView eventName);

  void StopEarcon() { port.StopEventChannels(); }

  // Called once a tick: ends a sound on the third tick after its start.
  void CountTick();

 private:
  MidiPort& port;
  DelayLoop& delay;
  std::int32_t mEarconTicks = 0;  // since the last sound started
  bool mOnDesktopIcon = false;    // by the icon events; nothing asks for it yet

  void PlayScroll(int first, int last);
};

}  // namespace pointalk
