#include "tones/midi_port.h"

#include <tuple>

namespace pointalk {
namespace {

// A sound that no system has: asking for it ends whatever plays. Asynchronous, no default sound, loop.
constexpr TextView kSilenceSound = u"1";
constexpr std::uint32_t kSilenceModule = 1;
constexpr std::uint32_t kSilenceFlags = 11;

// A count that a signed 16-bit number cannot hold is no count.
constexpr std::uint32_t kMostDevices = 32767;

// A message of value 0 goes out before a note off.
constexpr std::uint32_t kEmptyMessage = 0;

constexpr bool IsChannel(int channel) { return channel >= 0 && channel < kChannels; }

constexpr std::size_t Index(int channel) { return static_cast<std::size_t>(channel); }

}  // namespace

bool MidiPort::HasDevice() {
  const std::uint32_t devices = midi_.DeviceCount();
  return devices >= 1 && devices <= kMostDevices;
}

bool MidiPort::Open() {
  const MidiOpening opening = midi_.OpenMapper();
  if (opening.result != 0) return false;
  hMidiOut = opening.handle;
  mMouseTonesOn = true;
  return true;
}

void MidiPort::CloseMidiOut() {
  if (!mMouseTonesOn) return;
  for (int channel = 0; channel < kChannels; ++channel) StopNote(channel);
  std::ignore = midi_.Close(hMidiOut);  // a port that does not close is given up all the same
  mMouseTonesOn = false;
}

void MidiPort::SilenceAll() {
  CloseMidiOut();
  // It fails where no sound played.
  std::ignore = midi_.PlayNamedSound(kSilenceSound, kSilenceModule, kSilenceFlags);
}

void MidiPort::SetChannelProgram(int channel, std::int32_t instrument) {
  if (instrument < 0 || instrument > 255 || !IsChannel(channel)) return;
  if (instrument == mChannelProgram[Index(channel)]) return;
  mChannelProgram[Index(channel)] = instrument;
  Send(ProgramChange(channel, instrument));
}

void MidiPort::PresetChannelProgram(int channel, std::int32_t instrument) {
  if (IsChannel(channel)) mChannelProgram[Index(channel)] = instrument;
}

std::int32_t MidiPort::ChannelProgram(int channel) const {
  return IsChannel(channel) ? mChannelProgram[Index(channel)] : 0;
}

void MidiPort::PlayNote(int channel, Note note) {
  if (!IsChannel(channel)) return;
  noteVelocity[Index(channel)] = note.velocity;
  if (noteNumber[Index(channel)] != note.number) StrikeNote(channel, note);
}

void MidiPort::StrikeNote(int channel, Note note) {
  if (!IsChannel(channel)) return;
  const std::size_t at = Index(channel);
  noteVelocity[at] = note.velocity;
  StopNote(channel);
  Send(ProgramChange(channel, mChannelProgram[at]));
  Send(NoteOn(channel, note.number, note.velocity));
  noteOn[at] = true;
  noteNumber[at] = note.number;
}

void MidiPort::StopNote(int channel) {
  if (!IsChannel(channel)) return;
  const std::size_t at = Index(channel);
  if (!noteOn[at]) return;
  Send(kEmptyMessage);
  Send(NoteOff(channel, noteNumber[at], noteVelocity[at]));
  noteOn[at] = false;
}

void MidiPort::StopPositionTones() {
  StopNote(kHigherToneChannel);
  StopNote(kLowerToneChannel);
}

// Before the second note off the first one goes out again, in the place of an empty message.
void MidiPort::StopEventChannels() {
  std::uint32_t message = kEmptyMessage;
  for (const int channel : {kEventChannel, kSpareEventChannel}) {
    const std::size_t at = Index(channel);
    if (!noteOn[at]) continue;
    Send(message);
    message = NoteOff(channel, noteNumber[at], noteVelocity[at]);
    Send(message);
    noteOn[at] = false;
  }
}

void MidiPort::Send(std::uint32_t message) {
  if (mMouseTonesOn)
    std::ignore = midi_.Send(hMidiOut, message);  // a message that is refused is a note not heard
}

}  // namespace pointalk
