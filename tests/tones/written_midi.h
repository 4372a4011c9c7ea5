// A MIDI port on a system that writes down what is sent.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

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
  WrittenMidi midi;
  MidiPort port{midi};
};

}  // namespace pointalk
