// A MIDI port that writes down what is sent, and the room that owns it.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "app/spoken_dialogs.h"
#include "tests/sim/simulated.h"
#include "tones/midi_port.h"

namespace pointalk {

class WrittenMidi final : public MidiOut {
 public:
  std::uint32_t DeviceCount() override { return devices; }
  MidiOpening OpenMapper() override {
    ++openings;
    return {result, handle};
  }
  bool Send(MidiHandle port, std::uint32_t message) override {
    sent.push_back(message);
    sentTo = port;
    return accepts;
  }
  bool Close(MidiHandle port) override {
    closed.push_back(port);
    return accepts;
  }
  bool PlayNamedSound(TextView, std::uint32_t, std::uint32_t) override { return false; }

  std::uint32_t devices = 1;
  std::uint32_t result = 0;
  MidiHandle handle = 7;
  bool accepts = true;
  int openings = 0;
  std::vector<std::uint32_t> sent;
  MidiHandle sentTo = 0;
  std::vector<MidiHandle> closed;

  std::vector<std::uint32_t> TakeSent() { return std::exchange(sent, {}); }
};

struct PortOnWrittenMidi {
  sim::Simulated simulated;
  InputState input;
  ObjectDescription description;
  VoiceSettings settings;
  Engine engine{simulated.platform.sapi5, simulated.platform.sapi4};
  Pronouncer pronouncer{simulated.platform.input, input, description};
  Speaker speaker{simulated.platform.input, simulated.platform.panel, input, settings, engine, pronouncer};
  SpokenDialogs dialogs{simulated.platform.dialogs, simulated.platform.panel, input, speaker};
  WrittenMidi midi;
  MidiPort port{midi, simulated.platform.panel, simulated.platform.system, dialogs};
};

}  // namespace pointalk
