// Reads, writes, applies.
#include "tones/settings_file.h"

#include <limits>
#include <tuple>

#include "speech/voice_choice.h"
#include "text/numbers.h"
#include "text/text_rules.h"
#include "tones/settings_text.h"

namespace pointalk {
namespace {

constexpr FilePath kPath{Folder::kProgram, kSettingsFile};

// The file's scale of speeds.
constexpr double kRateStep = 5;
constexpr double kRateMiddle = 50;
constexpr double kSpeedFactor = 4.8;
constexpr double kSlowestSpeed = 30;

// Slightly more than a hundred, so that the scaling grows a little each time that it is saved and read.
constexpr double kScalingWritten = 100.1;
constexpr double kScalingRead = 100;

void Take(std::int32_t& field, double number) { field = RoundedToInt32(number).value_or(field); }

void TakeScaling(float& field, double scaling) {
  constexpr double kLargest = std::numeric_limits<float>::max();
  if (scaling >= -kLargest && scaling <= kLargest) field = static_cast<float>(scaling);
}

}  // namespace

void SettingsFile::WriteSettings() {
  SettingsValues values;
  values.verticalVolume = tones.mVerticalVolume;
  values.sapiSelection = voices.mSapiSelection;
  values.voiceSelection = voices.mVoiceSelection;
  values.voiceVolume = voices.mVoiceVolume;
  values.voiceSpeed = VoiceSpeed();
  values.melodyFormat = tones.mMelodyFormat;
  values.instrumentPreset = tones.mInstrumentPreset;
  values.keyboardScaling = double{tones.mKeyboardScaling} * kScalingWritten;
  values.instrument13 = channels.mChannelProgram[kHigherToneChannel];
  values.instrument14 = channels.mChannelProgram[kLowerToneChannel];
  values.standAlone = tones.mStandAlone;
  std::ignore = files.Write(kPath, SettingsText(values));  // where it fails the old settings stay
}

void SettingsFile::ReadSettings() {
  if (!files.Exists(kPath)) return;
  const auto content = files.Read(kPath);
  if (content) {
    for (const TextView line : Lines(*content)) Apply(line);
  }
  ApplyVoice(voices, engine, std::nullopt);
}

void SettingsFile::ReadSapiSelection() {
  const auto content = files.Read(kPath);
  if (!content) return;
  for (const TextView line : Lines(*content)) {
    // The choice goes into the engine in use, not into the choice that is written back.
    if (HoldsSapiSelection(line)) Take(voices.mSapiVersion, ReadNumber(SettingValue(line)));
  }
}

void SettingsFile::Apply(TextView line) {
  const SettingKey key = SettingKeyOf(line);
  if (key == SettingKey::kNone) return;
  const double number = ReadNumber(SettingValue(line));
  switch (key) {
    case SettingKey::kVerticalVolume: return Take(tones.mVerticalVolume, number);
    case SettingKey::kHorizontalVolume: return Take(tones.mHorizontalVolume, number);
    case SettingKey::kDoDingVolume: return Take(tones.mDingVolume, number);
    case SettingKey::kVoiceVolume: return Take(voices.mVoiceVolume, number);
    case SettingKey::kVoiceSelection: return Take(voices.mVoiceSelection, number);
    case SettingKey::kVoiceSpeed: return ApplyVoiceSpeed(number);
    case SettingKey::kMouseMelodyFormat: return Take(tones.mMelodyFormat, number);
    case SettingKey::kInstrumentPreset: return Take(tones.mInstrumentPreset, number);
    case SettingKey::kKeyboardScaling: return TakeScaling(tones.mKeyboardScaling, number / kScalingRead);
    case SettingKey::kVerticalInstrument: return Take(channels.mChannelProgram[kLowerToneChannel], number);
    case SettingKey::kHorizontalInstrument: return Take(channels.mChannelProgram[kHigherToneChannel], number);
    case SettingKey::kStandAlone: tones.mStandAlone = number != 0; return;
    case SettingKey::kNone: return;
  }
}

void SettingsFile::ApplyVoiceSpeed(double number) {
  // An engine that refuses a speed keeps the one it has.
  if (voices.mSapiVersion == 5) {
    if (auto* voice = engine.AsSapi5()) std::ignore = voice->SetRate((number - kRateMiddle) / kRateStep);
  } else if (voices.mSapiVersion == 4) {
    if (auto* control = engine.AsSapi4()) {
      std::ignore = control->SetSpeed(number * kSpeedFactor + kSlowestSpeed);
    }
  }
}

double SettingsFile::VoiceSpeed() {
  if (voices.mSapiVersion == 5) {
    auto* voice = engine.AsSapi5();
    return voice ? voice->Rate().value_or(0) * kRateStep + kRateMiddle : 0;
  }
  auto* control = engine.AsSapi4();
  return control ? (control->Speed().value_or(0) - kSlowestSpeed) * kSpeedFactor : 0;
}

}  // namespace pointalk
