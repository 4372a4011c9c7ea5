// The control-panel form. It owns every other object; read from top to bottom its members are the
// architecture. A room knows the rooms above it and the parts of the seam that it uses.
#pragma once

#include <cstdint>

#include "app/click_names.h"
#include "app/delay_loop.h"
#include "app/help.h"
#include "app/input_state.h"
#include "app/poll_loop.h"
#include "app/run_cycle.h"
#include "app/spoken_dialogs.h"
#include "crash/crash_learning.h"
#include "crash/crash_report.h"
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
#include "reader/object_description.h"
#include "reader/object_speech.h"
#include "reader/spot.h"
#include "reader/top_window.h"
#include "reader/window_title.h"
#include "registry/auto_start.h"
#include "registry/registry_layer.h"
#include "speech/engine.h"
#include "speech/pronouncer.h"
#include "speech/speaker.h"
#include "speech/voice_settings.h"
#include "speech/voices.h"
#include "tones/event_sounds.h"
#include "tones/midi_port.h"
#include "tones/position_tones.h"
#include "tones/settings_file.h"
#include "tones/tone_commands.h"
#include "tones/tone_settings.h"

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
  InputState input;
  ObjectDescription description;
  SpotHistory history;
  VoiceSettings voiceSettings;
  ToneSettings toneSettings;
  DesktopWindows desktop;

  DelayLoop delay;
  Engine engine;
  Pronouncer pronouncer;
  Speaker speaker;
  SpokenDialogs dialogs;

  MidiPort port;
  PositionTones tones;
  EventSounds sounds;
  SettingsFile settingsFile;
  ToneCommands toneCommands;
  Voices voices;

  CrashLearning learning;
  CrashReport report;

  AccessibilityQuery query;
  ObjectSpeech objectSpeech;
  WindowTitle titles;
  TopWindow topWindow;
  MenuReader menuReader;
  ControlReaders controlReaders;
  ListBoxReader listBoxReader;
  ListViewReader listViewReader;
  EditWords editWords;
  EditReaders editReaders;
  ObjectDescriber describer;

  RegistryLayer registry;
  AutoStart autoStart;

  Help help;
  ClickNames clicks;
  PollLoop poll;
  RunCycle runCycle;
};

}  // namespace pointalk
