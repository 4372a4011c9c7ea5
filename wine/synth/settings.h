// What a test can make the synthesizer pretend, by environment variables that are read once:
//   POINTALK_MIDI_DEVICES  how many MIDI output devices there are (1)
//   POINTALK_MIDI_OPEN     what successive midiOutOpen calls return, as "4,4,0"; past the end what is true:
//                          0, or 68 (no such device) where there are no devices
//   POINTALK_MIDI_LOSE     which ports lose their device: "20,6,1" has each of the first 1 that are opened
//   take 20
//                          short messages and refuse every later one with 6
//   POINTALK_MIDI_DELAY    milliseconds that every short message takes (0)
#pragma once

#include <vector>

namespace pointalk::wine {

struct SynthSettings {
  unsigned devices = 1;
  std::vector<unsigned> openResults;
  unsigned losingPorts = 0;  // the first so many
  unsigned taken = 0;        // messages before such a port is lost
  unsigned refusal = 0;      // what it returns from then on
  unsigned delayMilliseconds = 0;
};

const SynthSettings& Settings();

}  // namespace pointalk::wine
