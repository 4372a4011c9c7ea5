// Which engine speaks, with which voice, how fast and how loud.
#pragma once

#include <cstdint>

#include "app/input_state.h"
#include "app/spoken_dialogs.h"
#include "platform/dialogs.h"
#include "platform/panel.h"
#include "platform/speech_engines.h"
#include "platform/system.h"
#include "speech/engine.h"
#include "speech/speaker.h"
#include "speech/voice_settings.h"
#include "tones/midi_port.h"
#include "tones/settings_file.h"

namespace pointalk {

class Voices {
 public:
  struct Seam {
    Sapi5Voice& sapi5;
    Sapi4Control& sapi4;
    Dialogs& dialogs;
    Panel& panel;
    System& system;
  };

  Voices(const Seam& theSeam, InputState& theInput, VoiceSettings& theSettings, Engine& theEngine,
         Speaker& theSpeaker, SpokenDialogs& theSpokenDialogs, MidiPort& thePort, SettingsFile& theFile)
      : seam(theSeam),
        input(theInput),
        settings(theSettings),
        engine(theEngine),
        speaker(theSpeaker),
        spokenDialogs(theSpokenDialogs),
        port(thePort),
        file(theFile) {}

  // Finds out which engines there are, has the user choose between two, and keeps one. Without any the
  // program says so and ends.
  void ChooseEngine();

  // Finds the named voices and sets the first voice.
  void SetUpVoice();

  // The speed that start-up leaves the engine at.
  void SetStartSpeed();

  void cmdVoiceMary_Click();
  void cmdVoiceMike_Click();
  void cmdVoiceSam_Click();
  void cmdSpeedUpVoice_Click();
  void cmdSlowDownVoice_Click();
  void mnuVoiceVolume_Click();
  void mnuVoiceClearSapiVersion_Click();

 private:
  Seam seam;
  InputState& input;
  VoiceSettings& settings;
  Engine& engine;
  Speaker& speaker;
  SpokenDialogs& spokenDialogs;
  MidiPort& port;
  SettingsFile& file;

  bool mHaveSapi5 = false;
  bool mHaveSapi4 = false;
  std::int32_t mMaryVoiceIndex = 0;  // places in the SAPI 5 engine's list
  std::int32_t mMikeVoiceIndex = 0;
  std::int32_t mSamVoiceIndex = 0;

  void ChooseBetweenBoth();
  void AskForEngine();
  void FindNamedVoices();
  void UseVoice(std::int32_t place, std::int32_t code, std::int32_t sapi4Code, TextView confirmation);
  void ChangeSpeed(int steps, TextView confirmation);
};

}  // namespace pointalk
