// Opens, closes, plays.
#include "tones/midi_port.h"

#include <tuple>

namespace pointalk {
namespace {

constexpr TextView kNoDeviceTitle =
    u"Can't find an available Midi Device; you may need to quit some other midi app";
constexpr TextView kNoDeviceText =
    u"The Midi device is already in use by another program. If I were you I would quit from the other "
    u"program first. If the other program is not running anymore then you'll need to reboot to free up your "
    u"midi port again. Do you want to run without midi?";

// A sound that no system has: asking for it ends whatever plays. Asynchronous, no default sound, loop.
constexpr TextView kSilenceSound = u"1";
constexpr std::uint32_t kSilenceModule = 1;
constexpr std::uint32_t kSilenceFlags = 11;

// A count that a signed 16-bit number cannot hold is no count.
constexpr std::uint32_t kMostDevices = 32767;

// Goes out before a note off: the message as it is before it is filled.
constexpr std::uint32_t kEmptyMessage = 0;

constexpr bool IsChannel(int channel) { return channel >= 0 && channel < kChannels; }

constexpr std::size_t Index(int channel) { return static_cast<std::size_t>(channel); }

}  // namespace

void MidiPort::OpenMidiOut() {
  const std::uint32_t devices = midi.DeviceCount();
  if ((devices < 1 || devices > kMostDevices) && !mMidiPromptShown) {
    if (!WantsToRunWithoutMidi()) system.EndProgram();
    mMidiPromptShown = true;
    return;
  }
  const MidiOpening opening = midi.OpenMapper();
  if (opening.result == 0) {
    hMidiOut = opening.handle;
    mMouseTonesOn = true;
    return;
  }
  if (mMidiPromptShown) return;
  if (!WantsToRunWithoutMidi()) {
    SilenceAll();
    system.EndProgram();
  }
  mMidiPromptShown = true;
}

void MidiPort::CloseMidiOut() {
  if (!mMouseTonesOn) return;
  for (int channel = 0; channel < kChannels; ++channel) StopNote(channel);
  std::ignore = midi.Close(hMidiOut);  // a port that does not close is given up all the same
  mMouseTonesOn = false;
}

void MidiPort::SilenceAll() {
  CloseMidiOut();
  // It fails where nothing played.
  std::ignore = midi.PlayNamedSound(kSilenceSound, kSilenceModule, kSilenceFlags);
}

void MidiPort::SetChannelProgram(int channel, std::int32_t instrument) {
  if (instrument < 0 || instrument > 255 || !IsChannel(channel)) return;
  if (instrument == channels.mChannelProgram[Index(channel)]) return;
  channels.mChannelProgram[Index(channel)] = instrument;
  Send(ProgramChange(channel, instrument));
}

void MidiPort::PlayNote(int channel) {
  if (!IsChannel(channel)) return;
  if (channels.noteNumber[Index(channel)] == channels.noteTarget[Index(channel)]) return;
  StrikeNote(channel);
}

void MidiPort::StrikeNote(int channel) {
  if (!IsChannel(channel)) return;
  const std::size_t at = Index(channel);
  if (channels.noteOn[at]) StopNote(channel);
  Send(ProgramChange(channel, channels.mChannelProgram[at]));
  Send(NoteOn(channel, channels.noteTarget[at], channels.noteVelocity[at]));
  channels.noteOn[at] = true;
  channels.noteNumber[at] = channels.noteTarget[at];
}

void MidiPort::StopNote(int channel) {
  if (!IsChannel(channel)) return;
  const std::size_t at = Index(channel);
  if (!channels.noteOn[at]) return;
  Send(kEmptyMessage);
  Send(NoteOff(channel, channels.noteNumber[at], channels.noteVelocity[at]));
  channels.noteOn[at] = false;
}

void MidiPort::StopPositionTones() {
  StopNote(kHigherToneChannel);
  StopNote(kLowerToneChannel);
}

// One message variable serves both channels, so that the second empty message repeats the first note off.
void MidiPort::StopEventChannels() {
  std::uint32_t message = kEmptyMessage;
  for (const int channel : {kEventChannel, kSpareEventChannel}) {
    const std::size_t at = Index(channel);
    if (!channels.noteOn[at]) continue;
    Send(message);
    message = NoteOff(channel, channels.noteNumber[at], channels.noteVelocity[at]);
    Send(message);
    channels.noteOn[at] = false;
  }
}

void MidiPort::mnuMidiOnOff_Click() {
  mMidiOn = !mMidiOn;
  // The mark and the switch are turned each on its own.
  panel.SetMenuChecked(u"mnuMidiOnOff", !panel.MenuChecked(u"mnuMidiOnOff"));
  if (mMidiOn) {
    OpenMidiOut();
  } else {
    CloseMidiOut();
  }
}

bool MidiPort::WantsToRunWithoutMidi() {
  return dialogs.AskSpoken(kNoDeviceText, kBoxYesNo, kNoDeviceTitle) == kAnswerYes;
}

void MidiPort::Send(std::uint32_t message) {
  if (mMouseTonesOn)
    std::ignore = midi.Send(hMidiOut, message);  // a message that is refused is a note not heard
}

}  // namespace pointalk
