#include "speech/sapi4_calls.h"

#include <algorithm>
#include <tuple>

namespace pointalk {
namespace {

constexpr double kStartSpeed = 240;  // words a minute, here and below
constexpr double kLowestSpeed = 30;
constexpr double kHighestSpeed = 510;
constexpr double kSpeedStep = 12;

// It multiplies both ways: a speed grows each time that it is saved and read. That stays as it is.
constexpr double kFileFactor = 4.8;

constexpr int kMostStalls = 100;

// The criteria by which a control finds the voice for a code; empty for a code that names none.
TextView Criteria(std::int32_t voiceCode) {
  if (voiceCode == 0) return u"Mfg=Microsoft;Gender=1";
  if (voiceCode == 1 || voiceCode == 2) return u"Mfg=Microsoft;Gender=0";
  return {};
}

// The first voice that the control finds; where it finds none the voice stays.
void SelectFound(Sapi4Control& control, TextView criteria) {
  if (const auto voice = control.Find(criteria)) std::ignore = control.Select(*voice);
}

}  // namespace

void Sapi4Calls::Silence() {
  if (auto* control = object_.AsSapi4()) std::ignore = control->AudioReset();
}

void Sapi4Calls::Say(TextView text) {
  Silence();
  std::ignore = object_.Speak(text, std::nullopt);  // an engine that fails is not heard
}

void Sapi4Calls::SayAndWait(TextView text) {
  Say(text);
  WaitForLastWord(text.size());
}

// Goes on while the last word's position lies after 0 and before the end of the text, and puts it back to 0
// in each round: an engine that still speaks moves it on. Both readings of the loop's condition are made
// whatever the first one gives.
void Sapi4Calls::WaitForLastWord(std::size_t length) {
  int stalls = 0;
  for (;;) {
    const bool beforeEnd = LastWordPosition() < static_cast<double>(length);
    const bool begun = LastWordPosition() > 0;
    if (!beforeEnd || !begun) return;
    stalls = LastWordPosition() == 0 ? stalls + 1 : 0;
    if (stalls > kMostStalls) return;
    if (auto* control = object_.AsSapi4())
      std::ignore = control->SetLastWordPosition(0);  // the readings decide
    panel_.LetMessagesRun();
  }
}

double Sapi4Calls::LastWordPosition() {
  auto* control = object_.AsSapi4();
  return control ? control->LastWordPosition().value_or(0) : 0;
}

std::vector<Text> Sapi4Calls::VoiceDescriptions() { return {}; }

std::int32_t Sapi4Calls::UseVoice(const NamedVoice& named) {
  if (auto* control = object_.AsSapi4()) {
    const auto speed = control->Speed();
    SelectFound(*control, Criteria(named.sapi4Code));
    if (speed) std::ignore = control->SetSpeed(*speed);  // another voice never changes the speed
  }
  return named.sapi4Code;
}

// The control keeps its volume and its speed.
std::int32_t Sapi4Calls::ApplyVoice(std::int32_t selection, std::int32_t volume,
                                    std::optional<double> /*rate*/) {
  const TextView criteria = Criteria(selection);
  if (auto* control = object_.AsSapi4(); control && !criteria.empty()) SelectFound(*control, criteria);
  return volume;
}

void Sapi4Calls::SetVolume(std::int32_t percent) {
  auto* control = object_.AsSapi4();
  if (!control) return;
  std::ignore = control->SetVolumeLeft(percent);
  std::ignore = control->SetVolumeRight(percent);
}

void Sapi4Calls::SetStartSpeed() {
  if (auto* control = object_.AsSapi4()) std::ignore = control->SetSpeed(kStartSpeed);
}

void Sapi4Calls::ChangeSpeed(int direction) {
  auto* control = object_.AsSapi4();
  const auto speed = control ? control->Speed() : std::nullopt;
  if (!speed) return;
  const double changed = *speed + direction * kSpeedStep;
  std::ignore =
      control->SetSpeed(direction > 0 ? std::min(changed, kHighestSpeed) : std::max(changed, kLowestSpeed));
}

double Sapi4Calls::FileSpeed() {
  auto* control = object_.AsSapi4();
  return control ? (control->Speed().value_or(0) - kLowestSpeed) * kFileFactor : 0;
}

void Sapi4Calls::SetFileSpeed(double speed) {
  if (auto* control = object_.AsSapi4()) std::ignore = control->SetSpeed(speed * kFileFactor + kLowestSpeed);
}

}  // namespace pointalk
