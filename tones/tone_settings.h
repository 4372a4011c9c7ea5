// The user's choices of how the position tones sound.
#pragma once

#include <cstdint>

namespace pointalk {

struct ToneSettings {
  std::int32_t mVerticalVolume = 0;    // percent; the lower tone's base velocity is 20 above it
  std::int32_t mHorizontalVolume = 0;  // percent; base velocity of the higher tone
  std::int32_t mMelodyFormat = 0;      // 0 to 3 by the commands, any number from a file; below 2 both sound
  float mKeyboardScaling = 0;          // how much quieter each step of pitch is: percent / 100
};

}  // namespace pointalk
