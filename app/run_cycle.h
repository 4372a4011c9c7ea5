// Start-up, the first welcome, and the ways out.
#pragma once

#include "app/help.h"
#include "app/poll_loop.h"
#include "crash/crash_learning.h"
#include "platform/platform.h"
#include "reader/desktop_windows.h"
#include "settings/midi_switch.h"
#include "settings/settings_file.h"
#include "settings/tone_commands.h"
#include "settings/voices.h"
#include "speech/engine.h"
#include "speech/speaker.h"
#include "speech/spoken_dialogs.h"
#include "tones/delay_loop.h"
#include "tones/midi_port.h"
#include "tones/position_tones.h"

namespace pointalk {

class RunCycle {
 public:
  // What start-up brings up and shut-down takes down.
  struct Parts {
    Engine& engine;
    Speaker& speaker;
    SpokenDialogs& spokenDialogs;
    MidiPort& midiPort;
    PositionTones& positionTones;
    DelayLoop& delayLoop;
    SettingsFile& settingsFile;
    MidiSwitch& midiSwitch;
    ToneCommands& toneCommands;
    Voices& voices;
    CrashLearning& crashLearning;
    DesktopWindows& desktopWindows;
    Help& help;
    PollLoop& pollLoop;
  };

  RunCycle(const Platform& platform, const Parts& parts) : platform_(platform), parts_(parts) {}

  // Brings everything up in its fixed order; the poll timer runs at the end.
  void Form_Load();

  // What is done when the form is unloaded other than by the commands.
  void Form_Terminate();

  // Saves, asks, and on Yes ends the program.
  void ConfirmQuit();
  void RequestQuit() { ConfirmQuit(); }

  void mnuFileMinimize_Click() { platform_.panel.Minimise(); }
  void mnuFileExit_Click();

 private:
  Platform platform_;
  Parts parts_;

  Text mAppShortPath;  // Kept: nothing reads it.

  void SetUpEngine();
  void SetUpPanelAndTones();
  void WarmUp();
  void Greet();
  void Welcome();
};

}  // namespace pointalk
