#include "win32/speech_engines.h"

#include <tuple>
#include <utility>

namespace pointalk::win32 {
bool WinSapi5Voice::Create() {
  created_ = thread_.Ask([](Engines& engines) { return engines.sapi5.Create(); }).value_or(false);
  return created_;
}

void WinSapi5Voice::Release() {
  created_ = false;
  std::ignore = thread_.Ask([](Engines& engines) { return engines.sapi5.Release(), true; });
}

std::optional<double> WinSapi5Voice::Rate() {
  return thread_.Ask([](Engines& engines) { return engines.sapi5.Rate(); }).value_or(std::nullopt);
}

bool WinSapi5Voice::SetRate(double rate) {
  return thread_.Ask([rate](Engines& engines) { return engines.sapi5.SetRate(rate); }).value_or(false);
}

bool WinSapi5Voice::SetVolume(double volume) {
  return thread_.Ask([volume](Engines& engines) { return engines.sapi5.SetVolume(volume); }).value_or(false);
}

std::optional<std::int32_t> WinSapi5Voice::VoiceCount() {
  return thread_.Ask([](Engines& engines) { return engines.sapi5.VoiceCount(); }).value_or(std::nullopt);
}

std::optional<Text> WinSapi5Voice::VoiceDescription(std::int32_t index) {
  return thread_.Ask([index](Engines& engines) { return engines.sapi5.VoiceDescription(index); })
      .value_or(std::nullopt);
}

bool WinSapi5Voice::SetVoice(std::int32_t index) {
  return thread_.Ask([index](Engines& engines) { return engines.sapi5.SetVoice(index); }).value_or(false);
}

bool WinSapi5Voice::Speak(TextView text, std::optional<int> flags) {
  auto speak = [said = Text(text), flags](Engines& engines) { return engines.sapi5.Speak(said, flags); };
  const int given = flags.value_or(0);
  if ((given & kSpeakAsync) == 0) return thread_.Ask(std::move(speak)).value_or(false);
  return created_ && thread_.Hand(std::move(speak), (given & kSpeakPurgeFirst) != 0);
}

bool WinSapi5Voice::IsSpeaking(DWORD limit) {
  return created_ &&
         thread_.Ask([](Engines& engines) { return engines.sapi5.IsSpeaking(); }, limit).value_or(true);
}

bool WinSapi4Control::Create() {
  created_ = thread_.Ask([](Engines& engines) { return engines.sapi4.Create(); }).value_or(false);
  return created_;
}

void WinSapi4Control::Release() {
  created_ = false;
  std::ignore = thread_.Ask([](Engines& engines) { return engines.sapi4.Release(), true; });
}

std::optional<double> WinSapi4Control::Speed() {
  return thread_.Ask([](Engines& engines) { return engines.sapi4.Speed(); }).value_or(std::nullopt);
}

bool WinSapi4Control::SetSpeed(double speed) {
  return thread_.Ask([speed](Engines& engines) { return engines.sapi4.SetSpeed(speed); }).value_or(false);
}

bool WinSapi4Control::SetVolumeLeft(double volume) {
  return thread_.Ask([volume](Engines& engines) { return engines.sapi4.SetVolumeLeft(volume); })
      .value_or(false);
}

bool WinSapi4Control::SetVolumeRight(double volume) {
  return thread_.Ask([volume](Engines& engines) { return engines.sapi4.SetVolumeRight(volume); })
      .value_or(false);
}

std::optional<double> WinSapi4Control::Find(TextView criteria) {
  return thread_.Ask([wanted = Text(criteria)](Engines& engines) { return engines.sapi4.Find(wanted); })
      .value_or(std::nullopt);
}

bool WinSapi4Control::Select(double voice) {
  return thread_.Ask([voice](Engines& engines) { return engines.sapi4.Select(voice); }).value_or(false);
}

bool WinSapi4Control::AudioReset() {
  constexpr bool kCutsOff = true;
  return created_ && thread_.Hand([](Engines& engines) { return engines.sapi4.AudioReset(); }, kCutsOff);
}

bool WinSapi4Control::Speak(TextView text) {
  constexpr bool kCutsOff = false;
  return created_ &&
         thread_.Hand([said = Text(text)](Engines& engines) { return engines.sapi4.Speak(said); }, kCutsOff);
}

std::optional<double> WinSapi4Control::LastWordPosition() {
  return thread_.Ask([](Engines& engines) { return engines.sapi4.LastWordPosition(); })
      .value_or(std::nullopt);
}

bool WinSapi4Control::SetLastWordPosition(double position) {
  return thread_.Ask([position](Engines& engines) { return engines.sapi4.SetLastWordPosition(position); })
      .value_or(false);
}

bool WinSapi4Control::IsSpeaking(DWORD limit) {
  return created_ &&
         thread_.Ask([](Engines& engines) { return engines.sapi4.IsSpeaking(); }, limit).value_or(true);
}

}  // namespace pointalk::win32
