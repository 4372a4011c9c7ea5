// Start-up, the first welcome, and the ways out.
#pragma once

#include "app/delay_loop.h"
#include "app/help.h"
#include "app/poll_loop.h"
#include "app/spoken_dialogs.h"
#include "crash/crash_learning.h"
#include "platform/platform.h"
#include "reader/desktop_windows.h"
#include "speech/engine.h"
#include "speech/speaker.h"
#include "speech/voice_settings.h"
#include "speech/voices.h"
#include "tones/midi_port.h"
#include "tones/position_tones.h"
#include "tones/settings_file.h"
#include "tones/tone_settings.h"

namespace pointalk {

class RunCycle {
 public:
  // The rooms that start-up brings up and shut-down takes down.
  struct Rooms {
    DelayLoop& delay;
    Engine& engine;
    VoiceSettings& voiceSettings;
    Speaker& speaker;
    SpokenDialogs& dialogs;
    MidiPort& port;
    ToneSettings& toneSettings;
    PositionTones& tones;
    SettingsFile& settingsFile;
    Voices& voices;
    CrashLearning& learning;
    DesktopWindows& desktop;
    Help& help;
    PollLoop& poll;
  };

  RunCycle(const Platform& thePlatform, const Rooms& theRooms) : platform(thePlatform), rooms(theRooms) {}

  // Brings everything up in its fixed order; the poll timer runs at the end.
  void Form_Load();

  // What is done when the form is unloaded other than by the commands.
  void Form_Terminate();

  // Saves, asks, and on Yes ends the program.
  void ConfirmQuit();
  void RequestQuit() { ConfirmQuit(); }

  void mnuFileMinimize_Click() { platform.panel.Minimise(); }
  void mnuFileExit_Click();

 private:
  Platform platform;
  Rooms rooms;

  Text mAppShortPath;  // the program's folder in its 8.3 form

  void SetUpEngine();
  void SetUpPanelAndTones();
  void WarmUp();
  void Greet();
  void Welcome();
};

}  // namespace pointalk
