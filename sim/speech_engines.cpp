#include "sim/speech_engines.h"

#include <cmath>

#include "sim/code_page.h"

namespace pointalk::sim {
namespace {

// The nearest whole number, ties to even, never -0; no value for infinities and NaN.
std::optional<double> Rounded(double value) {
  if (!std::isfinite(value)) return std::nullopt;
  return std::nearbyint(value) + 0.0;
}

}  // namespace

SimSapi5Voice::SimSapi5Voice(Machine& machine) : machine_(machine) {
  if (machine.setup.sapi5) rate_ = machine.setup.sapi5->rate;
}

bool SimSapi5Voice::Create() {
  created_ = machine_.setup.sapi5.has_value();
  return created_;
}

std::optional<double> SimSapi5Voice::Rate() {
  if (!created_) return std::nullopt;
  return rate_;
}

bool SimSapi5Voice::SetRate(double rate) {
  const auto rounded = Rounded(rate);
  if (!created_ || !rounded) return false;
  rate_ = *rounded;
  machine_.Record("sapi5 rate", Number{rate_});
  return true;
}

bool SimSapi5Voice::SetVolume(double volume) {
  const auto rounded = Rounded(volume);
  if (!created_ || !rounded) return false;
  machine_.Record("sapi5 volume", Number{*rounded});
  return true;
}

bool SimSapi5Voice::HasVoice(std::int32_t index) const {
  return created_ && index >= 0 && static_cast<std::size_t>(index) < machine_.setup.sapi5->voices.size();
}

std::optional<std::int32_t> SimSapi5Voice::VoiceCount() {
  if (!created_) return std::nullopt;
  return static_cast<std::int32_t>(machine_.setup.sapi5->voices.size());
}

std::optional<Text> SimSapi5Voice::VoiceDescription(std::int32_t index) {
  if (!HasVoice(index)) return std::nullopt;
  return machine_.setup.sapi5->voices[static_cast<std::size_t>(index)];
}

bool SimSapi5Voice::SetVoice(std::int32_t index) {
  if (!HasVoice(index)) return false;
  machine_.Record("sapi5 voice", index);
  return true;
}

bool SimSapi5Voice::Speak(TextView text, std::optional<int> flags) {
  if (!created_) return false;
  machine_.Record("sapi5 speak", flags.value_or(0), text);
  return true;
}

SimSapi4Control::SimSapi4Control(Machine& machine) : machine_(machine) {
  if (machine.setup.sapi4) speed_ = machine.setup.sapi4->speed;
}

bool SimSapi4Control::Create() {
  created_ = machine_.setup.sapi4.has_value();
  return created_;
}

bool SimSapi4Control::RecordNumber(std::string_view member, double value) {
  if (!created_ || !std::isfinite(value)) return false;
  machine_.Record(member, Number{value});
  return true;
}

bool SimSapi4Control::RecordRounded(std::string_view member, double value) {
  const auto rounded = Rounded(value);
  if (!created_ || !rounded) return false;
  machine_.Record(member, Number{*rounded});
  return true;
}

std::optional<double> SimSapi4Control::Speed() {
  if (!created_) return std::nullopt;
  return speed_;
}

bool SimSapi4Control::SetSpeed(double speed) {
  if (!RecordNumber("sapi4 speed", speed)) return false;
  speed_ = speed;
  return true;
}

bool SimSapi4Control::SetVolumeLeft(double volume) { return RecordRounded("sapi4 left", volume); }

bool SimSapi4Control::SetVolumeRight(double volume) { return RecordRounded("sapi4 right", volume); }

std::optional<double> SimSapi4Control::Find(TextView criteria) {
  if (!created_) return std::nullopt;
  const Text wanted = ThroughAnsi(criteria);
  machine_.Record("sapi4 find", wanted);
  const auto& voices = machine_.setup.sapi4->voices;
  const auto found = voices.find(wanted);
  if (found == voices.end()) return std::nullopt;
  return found->second;
}

bool SimSapi4Control::Select(double voice) { return RecordNumber("sapi4 select", voice); }

bool SimSapi4Control::AudioReset() {
  if (created_) machine_.Record("sapi4 reset");
  return created_;
}

bool SimSapi4Control::Speak(TextView text) {
  if (created_) machine_.Record("sapi4 speak", text);
  return created_;
}

std::optional<double> SimSapi4Control::LastWordPosition() {
  if (!created_) return std::nullopt;
  const auto& positions = machine_.setup.sapi4->positions;
  return positionsRead_ < positions.size() ? positions[positionsRead_++] : 0;
}

bool SimSapi4Control::SetLastWordPosition(double position) {
  return RecordNumber("sapi4 position", position);
}

}  // namespace pointalk::sim
