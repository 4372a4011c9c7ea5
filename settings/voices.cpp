#include "settings/voices.h"

#include <tuple>

#include "text/numbers.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr double kFirstRate = 2;  // of a SAPI 5 voice

}  // namespace

void Voices::ChooseEngine() {
  const auto [mHaveSapi5, mHaveSapi4] = engine_.CreateBoth();
  if (mHaveSapi5 && mHaveSapi4) {
    ChooseBetweenBoth();
  } else if (mHaveSapi5) {
    engine_.Choose(5);
  } else if (mHaveSapi4) {
    engine_.Choose(4);
  }
  engine_.KeepChosen();
  if (engine_.IsChosen()) return;
  std::ignore =  // the box has one button
      seam_.dialogs.AskByBox(u"I'm sorry but there is no voice that Pointalk can use.", kDialogTitle, kBoxOk);
  seam_.system.EndProgram();
}

void Voices::ChooseBetweenBoth() {
  settingsFile_.ReadSapiSelection();
  if (engine_.Version() != 0) return;
  do {
    AskForEngine();
  } while (!engine_.IsChosen());
  UserChoices choices = settingsFile_.Choices();
  choices.mSapiSelection = engine_.Version();
  settingsFile_.Use(choices);
  // Said while the SAPI 5 voice is still in use, whichever was chosen.
  spokenDialogs_.TellSpoken(
      u"I will remember this setting. To clear it so you can choose sapi version next time, select Clear "
      u"Sapi version from the Voice menu.");
}

void Voices::AskForEngine() {
  engine_.SayBySapi5(
      u"Pleez wait until I'm done saying this, then pleez select S eigh P I 4, or S eigh P I 5, by typing 4 "
      u"or 5, and hit enter",
      kFirstRate);
  const Text answer = seam_.dialogs.AskByInput(u"Please select SAPI4 or SAPI5 by typing 4 or 5 and hit enter",
                                               u"You have both versions present", u"5");
  engine_.Choose(RoundedToInt32(ReadNumber(answer)).value_or(engine_.Version()));
}

void Voices::SetUpVoice() {
  FindNamedVoices();
  settingsFile_.ApplyVoice(kFirstRate);
}

void Voices::FindNamedVoices() {
  std::int32_t place = 0;
  for (const Text& description : engine_.Calls().VoiceDescriptions()) {
    if (ContainsInLowerCase(description, u"mike")) {
      mMikeVoiceIndex = place;
    } else if (ContainsInLowerCase(description, u"mary")) {
      mMaryVoiceIndex = place;
    } else if (ContainsInLowerCase(description, u"sam")) {
      mSamVoiceIndex = place;
    }
    ++place;
  }
}

// The code kept for Mary with SAPI 5 is her place in the list; Mike's and Sam's are not.
void Voices::cmdVoiceMary_Click() { UseVoice({mMaryVoiceIndex, mMaryVoiceIndex, 0}, u"Voice is now Mary."); }
void Voices::cmdVoiceMike_Click() { UseVoice({mMikeVoiceIndex, 1, 1}, u"Voice is now Mike."); }
void Voices::cmdVoiceSam_Click() { UseVoice({mSamVoiceIndex, 2, 2}, u"Voice is now Sam."); }

void Voices::UseVoice(const NamedVoice& voice, TextView confirmation) {
  midiPort_.StopPositionTones();
  UserChoices choices = settingsFile_.Choices();
  choices.mVoiceSelection = engine_.Calls().UseVoice(voice);
  settingsFile_.Use(choices);
  seam_.panel.LetMessagesRun();
  speaker_.SpeakAndWait(confirmation);
  settingsFile_.WriteSettings();
}

void Voices::cmdSpeedUpVoice_Click() { ChangeSpeed(1, u"speeding up voice"); }
void Voices::cmdSlowDownVoice_Click() { ChangeSpeed(-1, u"slowing down voice"); }

void Voices::ChangeSpeed(int direction, TextView confirmation) {
  engine_.Calls().ChangeSpeed(direction);
  seam_.panel.LetMessagesRun();
  speaker_.SpeakText(confirmation);
  settingsFile_.WriteSettings();
  clicks_.Forget();
}

void Voices::mnuVoiceVolume_Click() {
  midiPort_.StopPositionTones();
  const Text present = WholeNumberText(settingsFile_.Choices().mVoiceVolume);
  const Text answer = spokenDialogs_.AskSpokenNumber(
      u"Voice Volume is now " + present + u" percent.  Please enter the New value for Voice Volume.",
      u"InputBox", present);
  const auto volume = PercentAnswer(answer);
  if (!volume) return;
  engine_.Calls().SetVolume(*volume);
  UserChoices choices = settingsFile_.Choices();
  choices.mVoiceVolume = *volume;
  settingsFile_.Use(choices);
  settingsFile_.WriteSettings();
}

void Voices::mnuVoiceMute_Click() {
  speaker_.ToggleMute();
  // The mark and the voice are turned each on its own.
  seam_.panel.SetMenuChecked(u"mnuVoiceMute", !seam_.panel.MenuChecked(u"mnuVoiceMute"));
}

void Voices::mnuVoiceClearSapiVersion_Click() {
  UserChoices choices = settingsFile_.Choices();
  choices.mSapiSelection = 0;
  settingsFile_.Use(choices);
  spokenDialogs_.TellSpoken(
      u"Next time you start Pointalk, if you have both sapi 4 and sapi 5 then you will get to choose which "
      u"version of Sapi to use.");
}

}  // namespace pointalk
