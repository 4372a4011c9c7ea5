// The one MIDI port: it is opened and closed here, and every note goes out through it.
#pragma once

#include <array>
#include <cstdint>

#include "platform/midi_out.h"
#include "tones/short_messages.h"

namespace pointalk {

// A note to be started. Neither number is limited to what MIDI knows; both go out as they stand.
struct Note {
  std::int32_t number = 0;
  std::int32_t velocity = 0;
};

class MidiPort {
 public:
  explicit MidiPort(MidiOut& midi) : midi_(midi) {}

  // True when the system has a MIDI device.
  bool HasDevice();

  // False when the port cannot be had; one that is open already stays open then.
  [[nodiscard]] bool Open();

  // Stops every channel and closes the port.
  void CloseMidiOut();

  // Closes the port and stops every sound that the system plays for the program.
  void SilenceAll();

  // Gives a channel an instrument, 0 to 255, at once. Ignored for any other number, and for the
  // instrument that it has.
  void SetChannelProgram(int channel, std::int32_t instrument);

  // Gives a channel an instrument, any number, that the next note started there takes along.
  void PresetChannelProgram(int channel, std::int32_t instrument);

  // The instrument of a channel, from 0.
  std::int32_t ChannelProgram(int channel) const;

  // Starts the note, unless it is the one last started on the channel; the velocity is taken over in any
  // case.
  void PlayNote(int channel, Note note);

  // Starts the note, whichever was started last, and ends what sounds on the channel.
  void StrikeNote(int channel, Note note);

  // Ends the note that sounds on the channel, if any.
  void StopNote(int channel);

  // Both position tones, as every command does before it speaks.
  void StopPositionTones();

  // Ends the event sounds.
  void StopEventChannels();

  // The port is open.
  bool MouseTonesOn() const { return mMouseTonesOn; }

  // The user's switch. It neither opens nor closes the port.
  bool MidiOn() const { return mMidiOn; }
  void SwitchMidi(bool on) { mMidiOn = on; }

 private:
  MidiOut& midi_;

  MidiHandle hMidiOut = 0;
  bool mMouseTonesOn = false;
  bool mMidiOn = false;

  // By channel.
  std::array<std::int32_t, kChannels> mChannelProgram{};
  std::array<bool, kChannels> noteOn{};
  std::array<std::int32_t, kChannels> noteNumber{};    // of the note last started
  std::array<std::int32_t, kChannels> noteVelocity{};  // last given, with which the next stop goes out

  void Send(std::uint32_t message);
};

}  // namespace pointalk
