// Which engine speaks, with which voice, how fast and how loud.
#pragma once

#include <cstdint>

#include "input/clicks.h"
#include "platform/dialogs.h"
#include "platform/panel.h"
#include "platform/system.h"
#include "settings/settings_file.h"
#include "speech/engine.h"
#include "speech/speaker.h"
#include "speech/spoken_dialogs.h"
#include "tones/midi_port.h"

namespace pointalk {

class Voices {
 public:
  struct Seam {
    Dialogs& dialogs;
    Panel& panel;
    System& system;
  };

  Voices(const Seam& seam, Clicks& clicks, Engine& engine, Speaker& speaker, SpokenDialogs& spokenDialogs,
         MidiPort& midiPort, SettingsFile& settingsFile)
      : seam_(seam),
        clicks_(clicks),
        engine_(engine),
        speaker_(speaker),
        spokenDialogs_(spokenDialogs),
        midiPort_(midiPort),
        settingsFile_(settingsFile) {}

  // Finds out which engines there are, has the user choose between two, and keeps one. Without any the
  // program says so and ends.
  void ChooseEngine();

  // Finds the named voices and sets the first voice.
  void SetUpVoice();

  void cmdVoiceMary_Click();
  void cmdVoiceMike_Click();
  void cmdVoiceSam_Click();
  void cmdSpeedUpVoice_Click();
  void cmdSlowDownVoice_Click();
  void mnuVoiceVolume_Click();
  void mnuVoiceMute_Click();
  void mnuVoiceClearSapiVersion_Click();

 private:
  Seam seam_;
  Clicks& clicks_;
  Engine& engine_;
  Speaker& speaker_;
  SpokenDialogs& spokenDialogs_;
  MidiPort& midiPort_;
  SettingsFile& settingsFile_;

  std::int32_t mMaryVoiceIndex = 0;  // places in the SAPI 5 engine's list
  std::int32_t mMikeVoiceIndex = 0;
  std::int32_t mSamVoiceIndex = 0;

  void ChooseBetweenBoth();
  void AskForEngine();
  void FindNamedVoices();
  void UseVoice(const NamedVoice& voice, TextView confirmation);
  void ChangeSpeed(int direction, TextView confirmation);
};

}  // namespace pointalk
