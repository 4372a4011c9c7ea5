#include "speech/sapi5_calls.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace pointalk {
namespace {

constexpr std::int32_t kUsualVolume = 80;
constexpr double kStartRate = 3;
constexpr double kLowestRate = -10;
constexpr double kHighestRate = 10;

// The file's figure for a rate of 0, and its figures for one step of the rate.
constexpr double kFileMiddle = 50;
constexpr double kFileStep = 5;

}  // namespace

// A voice is silenced by a blank that cuts off. All three go on after an engine that fails: it is not heard.
void Sapi5Calls::Silence() { std::ignore = object_.Speak(u" ", kSpeakAsyncPurge); }

void Sapi5Calls::Say(TextView text) {
  Silence();
  std::ignore = object_.Speak(text, kSpeakAsyncPurge);
}

void Sapi5Calls::SayAndWait(TextView text) {
  Silence();
  std::ignore = object_.Speak(text, kSpeakPurgeFirst);
}

std::vector<Text> Sapi5Calls::VoiceDescriptions() {
  std::vector<Text> descriptions;
  auto* voice = object_.AsSapi5();
  const std::int32_t count = voice ? voice->VoiceCount().value_or(0) : 0;
  while (std::ssize(descriptions) < count) {
    const auto place = static_cast<std::int32_t>(descriptions.size());
    descriptions.push_back(voice->VoiceDescription(place).value_or(Text()));
  }
  return descriptions;
}

std::int32_t Sapi5Calls::UseVoice(const NamedVoice& named) {
  if (auto* voice = object_.AsSapi5()) {
    const auto rate = voice->Rate();
    std::ignore = voice->SetVoice(named.sapi5Place);
    if (rate) std::ignore = voice->SetRate(*rate);  // another voice never changes the speed
  }
  return named.sapi5Code;
}

std::int32_t Sapi5Calls::ApplyVoice(std::int32_t selection, std::int32_t volume, std::optional<double> rate) {
  const std::int32_t percent = volume == 0 ? kUsualVolume : volume;
  if (auto* voice = object_.AsSapi5()) {
    std::ignore = voice->SetVoice(selection);
    if (rate) std::ignore = voice->SetRate(*rate);
    std::ignore = voice->SetVolume(percent);
  }
  return percent;
}

void Sapi5Calls::SetVolume(std::int32_t percent) {
  if (auto* voice = object_.AsSapi5()) std::ignore = voice->SetVolume(percent);
}

void Sapi5Calls::SetStartSpeed() {
  if (auto* voice = object_.AsSapi5()) std::ignore = voice->SetRate(kStartRate);
}

void Sapi5Calls::ChangeSpeed(int direction) {
  auto* voice = object_.AsSapi5();
  const auto rate = voice ? voice->Rate() : std::nullopt;
  if (!rate) return;
  const double changed = *rate + direction;
  std::ignore =
      voice->SetRate(direction > 0 ? std::min(changed, kHighestRate) : std::max(changed, kLowestRate));
}

double Sapi5Calls::FileSpeed() {
  auto* voice = object_.AsSapi5();
  return voice ? voice->Rate().value_or(0) * kFileStep + kFileMiddle : 0;
}

void Sapi5Calls::SetFileSpeed(double speed) {
  if (auto* voice = object_.AsSapi5()) std::ignore = voice->SetRate((speed - kFileMiddle) / kFileStep);
}

}  // namespace pointalk
