// Gives voices to engines; an engine that refuses keeps what it has.
#include "speech/voice_choice.h"

#include <tuple>

namespace pointalk {
namespace {

constexpr std::int32_t kUsualVolume = 80;

}  // namespace

TextView Sapi4Criteria(std::int32_t voiceCode) {
  if (voiceCode == 0) return u"Mfg=Microsoft;Gender=1";
  if (voiceCode == 1 || voiceCode == 2) return u"Mfg=Microsoft;Gender=0";
  return {};
}

void SelectFound(Sapi4Control& control, TextView criteria) {
  if (const auto voice = control.Find(criteria)) std::ignore = control.Select(*voice);
}

void ApplyVoice(VoiceSettings& settings, Engine& engine, std::optional<double> rate) {
  if (settings.mSapiVersion == 5) {
    if (settings.mVoiceVolume == 0) settings.mVoiceVolume = kUsualVolume;
    if (auto* voice = engine.AsSapi5()) {
      std::ignore = voice->SetVoice(settings.mVoiceSelection);
      if (rate) std::ignore = voice->SetRate(*rate);
      std::ignore = voice->SetVolume(settings.mVoiceVolume);
    }
    return;
  }
  const TextView criteria = Sapi4Criteria(settings.mVoiceSelection);
  if (auto* control = engine.AsSapi4(); control && !criteria.empty()) SelectFound(*control, criteria);
}

}  // namespace pointalk
