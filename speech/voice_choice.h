// How the voice that the settings name is given to the engine.
#pragma once

#include <optional>

#include "platform/text.h"
#include "speech/engine.h"
#include "speech/voice_settings.h"

namespace pointalk {

// The criteria by which a SAPI 4 control finds the voice for a voice code; empty for a code that names none.
TextView Sapi4Criteria(std::int32_t voiceCode);

// Selects the first voice that a SAPI 4 control finds; where it finds none the voice stays.
void SelectFound(Sapi4Control& control, TextView criteria);

// SAPI 5: the voice by its place in the list, then a rate where one is given, then the volume, 80 where none
// is set. SAPI 4: the voice by its code.
void ApplyVoice(VoiceSettings& settings, Engine& engine, std::optional<double> rate);

}  // namespace pointalk
