// The MIDI output port, which is the synthesizer in this program.
#pragma once

#include "linux/notices.h"
#include "linux/synthesizer.h"
#include "platform/midi_out.h"

namespace pointalk::linux {

class LinuxMidiOut final : public MidiOut {
 public:
  explicit LinuxMidiOut(Notices& notices) : notices_(notices) {}

  // The synthesizer is always there; it is its sound device that may be missing.
  std::uint32_t DeviceCount() override { return 1; }
  MidiOpening OpenMapper() override;
  bool Send(MidiHandle port, std::uint32_t message) override;
  bool Close(MidiHandle port) override;

  // There are no sounds of the system here.
  bool PlayNamedSound(TextView, std::uint32_t, std::uint32_t) override { return false; }

 private:
  Notices& notices_;
  Synthesizer synthesizer_;
  bool isOpen_ = false;
  bool isFontMissed_ = false;  // the user was told
};

}  // namespace pointalk::linux
