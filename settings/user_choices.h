// The user's choices that no room below keeps: the settings file brings them back, the commands change them.
#pragma once

#include <cstdint>

namespace pointalk {

struct UserChoices {
  std::int32_t mSapiSelection = 0;  // the engine to be remembered, 5 or 4; 0 asks again at the next start
  // SAPI 4: 0 Mary, 1 Mike, 2 Sam; SAPI 5: a place in the engine's voice list.
  std::int32_t mVoiceSelection = 0;
  std::int32_t mVoiceVolume = 0;       // 0 to 100; 0 at start-up stands for unset
  std::int32_t mInstrumentPreset = 0;  // 1 to 8; 0 after an instrument was chosen by hand
  std::int32_t mDingVolume = 0;        // percent; shown when it is changed, and used by no sound
  bool mStandAlone = false;            // written back as it was read, and used for no purpose
};

}  // namespace pointalk
