// The user's choices of how the pointer sounds, shared by the tones, their commands and the settings file.
#pragma once

#include <cstdint>

namespace pointalk {

struct ToneSettings {
  std::int32_t mVerticalVolume = 0;    // percent; base velocity of the lower tone
  std::int32_t mHorizontalVolume = 0;  // percent; base velocity of the higher tone
  std::int32_t mDingVolume = 0;        // percent; kept, and used by no sound
  std::int32_t mMelodyFormat = 0;      // 0 to 3; below 2 both tones sound
  std::int32_t mInstrumentPreset = 0;  // 1 to 8; 0 after an instrument was chosen by hand
  float mKeyboardScaling = 0;          // how much quieter each step of pitch is: percent / 100
  bool mStandAlone = false;            // kept in the file, used by nothing
};

}  // namespace pointalk
