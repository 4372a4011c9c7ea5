#include "win32/traced_devices.h"

#include <string>

#include "win32/port_state.h"

namespace pointalk::win32 {
namespace {

bool Told(Trace& trace, const std::string& what, bool done) {
  trace.State(what + (done ? "" : " refused"));
  return done;
}

// What became of a text by now. A voice that is behind with its calls may be slow, or hang.
std::string Outcome(bool taken, const VoiceThread& voice) {
  if (!taken) return "voice refused";
  return voice.IsBehind() ? "not yet taken" : "taken";
}

std::string Whole(double number) { return std::to_string(static_cast<int>(number)); }

}  // namespace

std::uint32_t TracedMidiOut::DeviceCount() {
  const std::uint32_t count = base_.DeviceCount();
  trace_.State("MIDI devices: " + std::to_string(count));
  return count;
}

MidiOpening TracedMidiOut::OpenMapper() {
  const MidiOpening opening = base_.OpenMapper();
  trace_.State(opening.result == 0 ? "MIDI port opened"
                                   : "MIDI port refused, error " + std::to_string(opening.result));
  return opening;
}

// Notes, what is refused, and what becomes of a port whose device is gone; the other messages that are sent
// tell nobody much.
bool TracedMidiOut::Send(MidiHandle port, std::uint32_t message) {
  const unsigned reopenings = port_.Reopenings();
  const bool sent = base_.Send(port, message);
  if (port_.Reopenings() != reopenings)
    trace_.Step(port_.IsOpen() ? "MIDI port opened anew" : "MIDI port refused to open anew");
  if (!sent) {
    trace_.Step(port == 0 ? "MIDI message without a port" : "MIDI message refused");
  } else if ((message & 0xF0) == kNoteOn) {
    trace_.Step("note sent (channel " + std::to_string(message & 0x0F) + ", note " +
                std::to_string(message >> 8 & 0xFF) + ", velocity " + std::to_string(message >> 16 & 0xFF) +
                ")");
  }
  return sent;
}

bool TracedMidiOut::Close(MidiHandle port) { return Told(trace_, "MIDI port closed", base_.Close(port)); }

bool TracedMidiOut::PlayNamedSound(TextView name, std::uint32_t module, std::uint32_t flags) {
  return base_.PlayNamedSound(name, module, flags);
}

bool TracedSapi5Voice::Create() { return Told(trace_, "SAPI 5 voice created", base_.Create()); }

bool TracedSapi5Voice::SetRate(double rate) {
  return Told(trace_, "SAPI 5 rate " + Whole(rate), base_.SetRate(rate));
}

bool TracedSapi5Voice::SetVolume(double volume) {
  return Told(trace_, "SAPI 5 volume " + Whole(volume), base_.SetVolume(volume));
}

std::optional<std::int32_t> TracedSapi5Voice::VoiceCount() {
  const auto count = base_.VoiceCount();
  trace_.State("SAPI 5 voices: " + (count ? std::to_string(*count) : "not told"));
  return count;
}

bool TracedSapi5Voice::SetVoice(std::int32_t index) {
  return Told(trace_, "SAPI 5 voice " + std::to_string(index) + " chosen", base_.SetVoice(index));
}

bool TracedSapi5Voice::Speak(TextView text, std::optional<int> flags) {
  trace_.Step("handed to the voice (" + trace_.Shown(text) + ", flags " +
              (flags ? std::to_string(*flags) : "none") + ")");
  const bool taken = base_.Speak(text, flags);
  trace_.Step(Outcome(taken, voice_));
  return taken;
}

bool TracedSapi4Control::Create() { return Told(trace_, "SAPI 4 control created", base_.Create()); }

bool TracedSapi4Control::SetSpeed(double speed) {
  return Told(trace_, "SAPI 4 speed " + Whole(speed), base_.SetSpeed(speed));
}

bool TracedSapi4Control::SetVolumeLeft(double volume) {
  return Told(trace_, "SAPI 4 left volume " + Whole(volume), base_.SetVolumeLeft(volume));
}

bool TracedSapi4Control::SetVolumeRight(double volume) {
  return Told(trace_, "SAPI 4 right volume " + Whole(volume), base_.SetVolumeRight(volume));
}

bool TracedSapi4Control::Select(double voice) {
  return Told(trace_, "SAPI 4 voice " + Whole(voice) + " chosen", base_.Select(voice));
}

bool TracedSapi4Control::AudioReset() {
  const bool reset = base_.AudioReset();
  if (!reset) trace_.Step("voice was not silenced");
  return reset;
}

bool TracedSapi4Control::Speak(TextView text) {
  trace_.Step("handed to the voice (" + trace_.Shown(text) + ")");
  const bool taken = base_.Speak(text);
  trace_.Step(Outcome(taken, voice_));
  return taken;
}

}  // namespace pointalk::win32
