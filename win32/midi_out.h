// The MIDI output port and the system's sounds.
#pragma once

#include "platform/midi_out.h"

namespace pointalk::win32 {

class WinMidiOut final : public MidiOut {
 public:
  std::uint32_t DeviceCount() override;
  MidiOpening OpenMapper() override;
  bool Send(MidiHandle port, std::uint32_t message) override;
  bool Close(MidiHandle port) override;
  bool PlayNamedSound(TextView name, std::uint32_t module, std::uint32_t flags) override;
};

}  // namespace pointalk::win32
