// The user's choices of engine and voice, shared by the voice commands and the settings file.
#pragma once

#include <cstdint>

namespace pointalk {

struct VoiceSettings {
  std::int32_t mSapiVersion = 0;    // the engine in use: 5 or 4; 0 while not chosen
  std::int32_t mSapiSelection = 0;  // the choice to be remembered; 0 asks again at the next start
  // SAPI 4: 0 Mary, 1 Mike, 2 Sam; SAPI 5: a place in the engine's voice list.
  std::int32_t mVoiceSelection = 0;
  std::int32_t mVoiceVolume = 0;  // 0 to 100; 0 at start-up stands for unset
};

}  // namespace pointalk
