// The engine's choice and the voice commands. An engine that refuses something keeps what it has.
#include "speech/voices.h"

#include <algorithm>
#include <tuple>

#include "speech/voice_choice.h"
#include "text/numbers.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

// What start-up sets.
constexpr double kFirstRate = 2;
constexpr double kStartRate = 3;
constexpr double kStartSpeed = 240;

// Limits and steps of the speed commands.
constexpr std::int32_t kLowestRate = -10;
constexpr std::int32_t kHighestRate = 10;
constexpr double kLowestSpeed = 30;
constexpr double kHighestSpeed = 510;
constexpr double kSpeedStep = 12;

}  // namespace

void Voices::ChooseEngine() {
  if (seam.sapi5.Create()) {
    engine.SetVoice(Engine::Object::kSapi5);
    mHaveSapi5 = seam.sapi5.Rate().has_value();
  }
  mHaveSapi4 = seam.sapi4.Create() && seam.sapi4.Speed().has_value();

  if (mHaveSapi5 && mHaveSapi4) {
    ChooseBetweenBoth();
  } else if (mHaveSapi5) {
    settings.mSapiVersion = 5;
  } else if (mHaveSapi4) {
    settings.mSapiVersion = 4;
  }

  if (settings.mSapiVersion == 4) {
    engine.SetVoice(Engine::Object::kSapi4);
    seam.sapi5.Release();
    return;
  }
  seam.sapi4.Release();
  if (settings.mSapiVersion == 5) return;
  std::ignore =
      seam.dialogs.AskByBox(u"I'm sorry but there is no voice that Pointalk can use.", kDialogTitle, kBoxOk);
  seam.system.EndProgram();
}

void Voices::ChooseBetweenBoth() {
  file.ReadSapiSelection();
  if (settings.mSapiVersion != 0) return;
  do {
    AskForEngine();
  } while (settings.mSapiVersion != 4 && settings.mSapiVersion != 5);
  settings.mSapiSelection = settings.mSapiVersion;
  // Said while the SAPI 5 voice is still in use, whichever was chosen.
  std::ignore = spokenDialogs.AskSpoken(
      u"I will remember this setting. To clear it so you can choose sapi version next time, select Clear "
      u"Sapi version from the Voice menu.",
      kBoxOk);
}

void Voices::AskForEngine() {
  std::ignore = seam.sapi5.SetRate(kFirstRate);
  std::ignore = seam.sapi5.Speak(u" ", kSpeakAsyncPurge);
  std::ignore = seam.sapi5.Speak(
      u"Pleez wait until I'm done saying this, then pleez select S eigh P I 4, or S eigh P I 5, by typing 4 "
      u"or 5, and hit enter",
      std::nullopt);
  const Text answer = seam.dialogs.AskByInput(u"Please select SAPI4 or SAPI5 by typing 4 or 5 and hit enter",
                                              u"You have both versions present", u"5");
  settings.mSapiVersion = RoundedToInt32(ReadNumber(answer)).value_or(settings.mSapiVersion);
}

void Voices::SetUpVoice() {
  if (settings.mSapiVersion == 5) FindNamedVoices();
  ApplyVoice(settings, engine, kFirstRate);
}

void Voices::FindNamedVoices() {
  auto* voice = engine.AsSapi5();
  const std::int32_t count = voice ? voice->VoiceCount().value_or(0) : 0;
  for (std::int32_t place = 0; place < count; ++place) {
    const Text description = voice->VoiceDescription(place).value_or(Text());
    if (ContainsInLowerCase(description, u"mike")) {
      mMikeVoiceIndex = place;
    } else if (ContainsInLowerCase(description, u"mary")) {
      mMaryVoiceIndex = place;
    } else if (ContainsInLowerCase(description, u"sam")) {
      mSamVoiceIndex = place;
    }
  }
}

void Voices::SetStartSpeed() {
  if (settings.mSapiVersion == 5) {
    if (auto* voice = engine.AsSapi5()) std::ignore = voice->SetRate(kStartRate);
  } else {
    if (auto* control = engine.AsSapi4()) std::ignore = control->SetSpeed(kStartSpeed);
  }
}

void Voices::cmdVoiceMary_Click() { UseVoice(mMaryVoiceIndex, mMaryVoiceIndex, 0, u"Voice is now Mary."); }

// The code kept for Mike and Sam is not their place in the list, unlike Mary's.
void Voices::cmdVoiceMike_Click() { UseVoice(mMikeVoiceIndex, 1, 1, u"Voice is now Mike."); }
void Voices::cmdVoiceSam_Click() { UseVoice(mSamVoiceIndex, 2, 2, u"Voice is now Sam."); }

void Voices::UseVoice(std::int32_t place, std::int32_t code, std::int32_t sapi4Code, TextView confirmation) {
  port.StopPositionTones();
  if (settings.mSapiVersion == 5) {
    settings.mVoiceSelection = code;
    if (auto* voice = engine.AsSapi5()) {
      const auto rate = voice->Rate();
      std::ignore = voice->SetVoice(place);
      if (rate) std::ignore = voice->SetRate(*rate);  // another voice never changes the speed
    }
  } else {
    settings.mVoiceSelection = sapi4Code;
    if (auto* control = engine.AsSapi4()) {
      const auto speed = control->Speed();
      SelectFound(*control, Sapi4Criteria(sapi4Code));
      if (speed) std::ignore = control->SetSpeed(*speed);
    }
  }
  seam.panel.LetMessagesRun();
  speaker.SpeakAndWait(confirmation);
  file.WriteSettings();
}

void Voices::cmdSpeedUpVoice_Click() { ChangeSpeed(1, u"speeding up voice"); }
void Voices::cmdSlowDownVoice_Click() { ChangeSpeed(-1, u"slowing down voice"); }

// Only the limit in the direction of the change counts.
void Voices::ChangeSpeed(int steps, TextView confirmation) {
  if (settings.mSapiVersion == 5) {
    auto* voice = engine.AsSapi5();
    if (const auto rate = voice ? voice->Rate() : std::nullopt) {
      const double changed = *rate + steps;
      std::ignore = voice->SetRate(steps > 0 ? std::min<double>(changed, kHighestRate)
                                             : std::max<double>(changed, kLowestRate));
    }
  } else {
    auto* control = engine.AsSapi4();
    if (const auto speed = control ? control->Speed() : std::nullopt) {
      const double changed = *speed + steps * kSpeedStep;
      std::ignore =
          control->SetSpeed(steps > 0 ? std::min(changed, kHighestSpeed) : std::max(changed, kLowestSpeed));
    }
  }
  seam.panel.LetMessagesRun();
  speaker.SpeakText(confirmation);
  file.WriteSettings();
  input.mPendingEventText.clear();
}

void Voices::mnuVoiceVolume_Click() {
  port.StopPositionTones();
  const Text present = WholeNumberText(settings.mVoiceVolume);
  const Text answer = spokenDialogs.AskSpokenNumber(
      u"Voice Volume is now " + present + u" percent.  Please enter the New value for Voice Volume.",
      u"InputBox", present);
  const auto volume = PercentAnswer(answer);
  if (!volume) return;
  if (settings.mSapiVersion == 5) {
    if (auto* voice = engine.AsSapi5()) std::ignore = voice->SetVolume(*volume);
  } else if (auto* control = engine.AsSapi4()) {
    std::ignore = control->SetVolumeLeft(*volume);
    std::ignore = control->SetVolumeRight(*volume);
  }
  settings.mVoiceVolume = *volume;
  file.WriteSettings();
}

void Voices::mnuVoiceClearSapiVersion_Click() {
  settings.mSapiSelection = 0;
  std::ignore = spokenDialogs.AskSpoken(
      u"Next time you start Pointalk, if you have both sapi 4 and sapi 5 then you will get to choose which "
      u"version of Sapi to use.",
      kBoxOk);
}

}  // namespace pointalk
