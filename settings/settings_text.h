// The settings file as text: how its lines are written and understood.
#pragma once

#include <cstdint>
#include <span>

#include "text/text.h"

namespace pointalk {

inline constexpr TextView kSettingsFile = u"PTK.ini";

// The value of a line: what follows its first "=", the blank included, or the whole line where there is none.
TextView SettingValue(TextView line);

enum class SettingKey {
  kVerticalVolume,
  kHorizontalVolume,
  kDoDingVolume,
  kVoiceVolume,
  kVoiceSelection,
  kVoiceSpeed,
  kMouseMelodyFormat,
  kInstrumentPreset,
  kKeyboardScaling,
  kVerticalInstrument,
  kHorizontalInstrument,
  kStandAlone,
  kNone,
};

// The key that a line holds anywhere; where it holds several, the first in the order above.
SettingKey SettingKeyOf(TextView line);

// True for a line with the choice of engine.
bool HoldsSapiSelection(TextView line);

// What the file is made of, in the file's own figures.
struct SettingsValues {
  std::int32_t verticalVolume = 0;
  std::int32_t sapiSelection = 0;
  std::int32_t voiceSelection = 0;
  std::int32_t voiceVolume = 0;
  double voiceSpeed = 0;
  std::int32_t melodyFormat = 0;
  std::int32_t instrumentPreset = 0;
  double keyboardScaling = 0;
  std::int32_t instrument13 = 0;
  std::int32_t instrument14 = 0;
  bool standAlone = false;
};

// The 17 lines. Three volumes are written from the vertical one, and the instruments under each other's
// names, so the two change places when the file is read back. Both stay as they are.
Text SettingsText(const SettingsValues& values);

}  // namespace pointalk
