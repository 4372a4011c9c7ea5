// The MIDI output port and the system's sounds.
#pragma once

#include "platform/midi_out.h"
#include "win32/port_state.h"

namespace pointalk::win32 {

// The port keeps the handle under which it was opened first, also when it has to be opened anew.
class WinMidiOut final : public MidiOut {
 public:
  std::uint32_t DeviceCount() override;
  MidiOpening OpenMapper() override;
  bool Send(MidiHandle port, std::uint32_t message) override;
  bool Close(MidiHandle port) override;
  bool PlayNamedSound(TextView name, std::uint32_t module, std::uint32_t flags) override;

  // Opens the port anew where one is open: the system's synthesizer plays on the device on which it began,
  // even when that is gone or is no longer the one that the user hears. False while a note sounds, which
  // would be cut off.
  [[nodiscard]] bool FollowDevices();

  // How often the port has been opened anew, in vain or not.
  unsigned Reopenings() const { return reopenings_; }
  bool IsOpen() const { return current_ != 0; }

 private:
  // The system's own handle of the port.
  std::uintptr_t Current(MidiHandle port) const;

  void Reopen();

  MidiHandle given_ = 0;        // of the port that was opened last; 0 when none is open
  std::uintptr_t current_ = 0;  // the system's handle of that port; 0 when it could not be opened anew
  PortState state_;
  unsigned reopenings_ = 0;
};

}  // namespace pointalk::win32
