#include "settings/settings_file.h"

#include <limits>
#include <tuple>

#include "text/numbers.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr FilePath kPath{Folder::kProgram, kSettingsFile};

// The scaling is kept as a factor and written in percent. Written a little larger than it is read, it grows
// each time that it is saved and read.
constexpr double kScalingWritten = 100.1;
constexpr double kScalingRead = 100;

void Take(std::int32_t& field, double number) { field = RoundedToInt32(number).value_or(field); }

void TakeScaling(float& field, double scaling) {
  constexpr double kLargest = std::numeric_limits<float>::max();
  if (scaling >= -kLargest && scaling <= kLargest) field = static_cast<float>(scaling);
}

}  // namespace

void SettingsFile::WriteSettings() {
  const ToneSettings& tones = positionTones_.Settings();
  SettingsValues values;
  values.verticalVolume = tones.mVerticalVolume;
  values.sapiSelection = choices_.mSapiSelection;
  values.voiceSelection = choices_.mVoiceSelection;
  values.voiceVolume = choices_.mVoiceVolume;
  values.voiceSpeed = engine_.Calls().FileSpeed();
  values.melodyFormat = tones.mMelodyFormat;
  values.instrumentPreset = choices_.mInstrumentPreset;
  values.keyboardScaling = double{tones.mKeyboardScaling} * kScalingWritten;
  values.instrument13 = midiPort_.ChannelProgram(kHigherToneChannel);
  values.instrument14 = midiPort_.ChannelProgram(kLowerToneChannel);
  values.standAlone = choices_.mStandAlone;
  std::ignore = files_.Write(kPath, SettingsText(values));  // where it fails the old settings stay
}

void SettingsFile::ReadSettings() {
  if (!files_.Exists(kPath)) return;
  const auto content = files_.Read(kPath);
  if (content) {
    for (const TextView line : Lines(*content)) Apply(line);
  }
  ApplyVoice(std::nullopt);
}

void SettingsFile::ApplyVoice(std::optional<double> rate) {
  choices_.mVoiceVolume = engine_.Calls().ApplyVoice(choices_.mVoiceSelection, choices_.mVoiceVolume, rate);
}

void SettingsFile::ReadSapiSelection() {
  const auto content = files_.Read(kPath);
  if (!content) return;
  for (const TextView line : Lines(*content)) {
    if (!HoldsSapiSelection(line)) continue;
    // The choice goes into the engine in use, not into the choice that is written back.
    engine_.Choose(RoundedToInt32(ReadNumber(SettingValue(line))).value_or(engine_.Version()));
  }
}

void SettingsFile::Apply(TextView line) {
  const SettingKey key = SettingKeyOf(line);
  if (key == SettingKey::kNone) return;
  const double number = ReadNumber(SettingValue(line));
  switch (key) {
    case SettingKey::kDoDingVolume: return Take(choices_.mDingVolume, number);
    case SettingKey::kVoiceVolume: return Take(choices_.mVoiceVolume, number);
    case SettingKey::kVoiceSelection: return Take(choices_.mVoiceSelection, number);
    case SettingKey::kVoiceSpeed: return engine_.Calls().SetFileSpeed(number);
    case SettingKey::kInstrumentPreset: return Take(choices_.mInstrumentPreset, number);
    case SettingKey::kVerticalInstrument: return TakeInstrument(kLowerToneChannel, number);
    case SettingKey::kHorizontalInstrument: return TakeInstrument(kHigherToneChannel, number);
    case SettingKey::kStandAlone: choices_.mStandAlone = number != 0; return;
    default: return ApplyToTones(key, number);
  }
}

void SettingsFile::ApplyToTones(SettingKey key, double number) {
  ToneSettings tones = positionTones_.Settings();
  switch (key) {
    case SettingKey::kVerticalVolume: Take(tones.mVerticalVolume, number); break;
    case SettingKey::kHorizontalVolume: Take(tones.mHorizontalVolume, number); break;
    case SettingKey::kMouseMelodyFormat: Take(tones.mMelodyFormat, number); break;
    case SettingKey::kKeyboardScaling: TakeScaling(tones.mKeyboardScaling, number / kScalingRead); break;
    default: break;
  }
  positionTones_.Use(tones);
}

void SettingsFile::TakeInstrument(int channel, double number) {
  if (const auto instrument = RoundedToInt32(number)) midiPort_.PresetChannelProgram(channel, *instrument);
}

}  // namespace pointalk
