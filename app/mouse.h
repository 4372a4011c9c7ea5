// The control-panel form. It owns every other object; read from top to bottom its members are the
// architecture: each one is given references to those above it and to the parts of the seam that it uses.
#pragma once

#include <cstdint>

#include "app/help.h"
#include "app/poll_loop.h"
#include "app/run_cycle.h"
#include "crash/crash_learning.h"
#include "crash/crash_report.h"
#include "input/clicks.h"
#include "input/keys.h"
#include "platform/platform.h"
#include "reader/accessibility_query.h"
#include "reader/control_readers.h"
#include "reader/desktop_windows.h"
#include "reader/edit_readers.h"
#include "reader/edit_words.h"
#include "reader/list_box_reader.h"
#include "reader/list_view_reader.h"
#include "reader/menu_reader.h"
#include "reader/object_describer.h"
#include "reader/object_speech.h"
#include "reader/top_window.h"
#include "reader/window_title.h"
#include "registry/auto_start.h"
#include "registry/registry_layer.h"
#include "settings/midi_switch.h"
#include "settings/settings_file.h"
#include "settings/tone_commands.h"
#include "settings/voices.h"
#include "speech/engine.h"
#include "speech/pronouncer.h"
#include "speech/speaker.h"
#include "speech/spoken_dialogs.h"
#include "tones/delay_loop.h"
#include "tones/event_sounds.h"
#include "tones/midi_port.h"
#include "tones/position_tones.h"

namespace pointalk {

class Mouse {
 public:
  explicit Mouse(const Platform& platform);
  Mouse(const Mouse&) = delete;
  Mouse& operator=(const Mouse&) = delete;

  // The events of the form. They may come while another is at work, when that lets messages run. None of them
  // throws; what was begun when memory ran out is given up.
  void Form_Load();
  void Form_Terminate();
  void Form_Click();
  void RequestQuit();
  void Timer1_Timer();
  void WinHook1_Message(std::int32_t message);

  void mnuFileMinimize_Click();
  void mnuFileExit_Click();
  void mnuMidiOnOff_Click();
  void mnuMidiMouseInstrumentPreset_Click();
  void mnuMidiHorizInstrument_Click();
  void mnuMidiHorizVolume_Click();
  void mnuMidiVertInstrument_Click();
  void mnuMidiVertVolume_Click();
  void mnuMidiMouseMelodyFormat_Click();
  void mnuMidiDingVolume_Click();
  void mnuMidiKeyboardScaling_Click();
  void mnuVoiceVolume_Click();
  void mnuVoiceSlowDown_Click();
  void mnuVoiceSpeedUp_Click();
  void mnuVoiceMary_Click();
  void mnuVoiceMike_Click();
  void mnuVoiceSam_Click();
  void mnuVoiceMute_Click();
  void mnuVoiceClearSapiVersion_Click();
  void mnuHelpInstructions_Click();
  void mnuHelpAbout_Click();
  void mnuProgramMakeAutoStart_Click();
  void mnuProgramMakeNotAutoStart_Click();
  void mnuTroubleCrashReport_Click();

  void cmdVoiceSam_Click();
  void cmdVoiceMike_Click();
  void cmdVoiceMary_Click();
  void cmdSpeedUpVoice_Click();
  void cmdSlowDownVoice_Click();
  void cmdMouseInstrumentPreset_Click();
  void cmdChangeMouseMelodyFormat_Click();

 private:
  // input
  Keys keys_;
  Clicks clicks_;

  // speech
  Engine engine_;
  Pronouncer pronouncer_;
  Speaker speaker_;
  SpokenDialogs spokenDialogs_;

  // tones
  MidiPort midiPort_;
  PositionTones positionTones_;
  DelayLoop delayLoop_;
  EventSounds eventSounds_;

  // settings
  SettingsFile settingsFile_;
  MidiSwitch midiSwitch_;
  ToneCommands toneCommands_;
  Voices voices_;

  // crash
  CrashLearning crashLearning_;
  CrashReport crashReport_;

  // reader
  DesktopWindows desktopWindows_;
  AccessibilityQuery accessibilityQuery_;
  ObjectSpeech objectSpeech_;
  WindowTitle windowTitle_;
  TopWindow topWindow_;
  MenuReader menuReader_;
  ControlReaders controlReaders_;
  ListBoxReader listBoxReader_;
  ListViewReader listViewReader_;
  EditWords editWords_;
  EditReaders editReaders_;
  ObjectDescriber objectDescriber_;

  // registry
  RegistryLayer registryLayer_;
  AutoStart autoStart_;

  // app
  Help help_;
  PollLoop pollLoop_;
  RunCycle runCycle_;
};

}  // namespace pointalk
