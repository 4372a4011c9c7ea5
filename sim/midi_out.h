// The simulated MIDI output port and sound player.
#pragma once

#include "platform/midi_out.h"
#include "sim/machine.h"

namespace pointalk::sim {

class SimMidiOut final : public MidiOut {
 public:
  explicit SimMidiOut(Machine& machine) : machine_(machine) {}

  std::uint32_t DeviceCount() override { return machine_.setup.midiDevices; }
  MidiOpening OpenMapper() override;
  bool Send(MidiHandle port, std::uint32_t message) override;
  bool Close(MidiHandle port) override;
  bool PlayNamedSound(TextView name, std::uint32_t module, std::uint32_t flags) override;

 private:
  Machine& machine_;
  std::size_t opened_ = 0;  // how often the port was asked to open
  bool open_ = false;
};

}  // namespace pointalk::sim
