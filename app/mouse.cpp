#include "app/mouse.h"

#include <exception>

namespace pointalk {
namespace {

// An event ends here whatever went wrong in it, so that the next one is heard again.
template <class Work> void Handle(Work work) {
  try {
    work();
  } catch (const std::exception&) {
  }
}

}  // namespace

Mouse::Mouse(const Platform& p)
    : keys_(p.input),
      engine_(p.sapi5, p.sapi4, p.panel),
      pronouncer_(keys_),
      speaker_(keys_, clicks_, engine_, pronouncer_),
      spokenDialogs_(p.dialogs, p.panel, clicks_, speaker_),
      midiPort_(p.midi),
      positionTones_(midiPort_),
      delayLoop_(p.clock),
      eventSounds_(midiPort_, delayLoop_),
      settingsFile_(p.files, engine_, midiPort_, positionTones_),
      midiSwitch_(p.panel, p.system, spokenDialogs_, midiPort_),
      toneCommands_(p.panel, spokenDialogs_, midiPort_, positionTones_, settingsFile_, midiSwitch_),
      voices_({p.dialogs, p.panel, p.system}, clicks_, engine_, speaker_, spokenDialogs_, midiPort_,
              settingsFile_),
      crashLearning_(p.files, p.system, spokenDialogs_),
      crashReport_(p.system, keys_, clicks_, speaker_, spokenDialogs_, midiPort_),
      accessibilityQuery_(p.accessibility),
      objectSpeech_(pronouncer_, speaker_),
      windowTitle_(p.messages, p.windows),
      topWindow_(p.windows, desktopWindows_, windowTitle_),
      menuReader_({p.menus, p.windows, p.memory}, objectSpeech_),
      controlReaders_(clicks_, eventSounds_, objectSpeech_, windowTitle_),
      listBoxReader_(p.messages, p.windows, eventSounds_, objectSpeech_),
      listViewReader_({p.messages, p.windows, p.memory, p.ansi}, speaker_, eventSounds_, desktopWindows_,
                      objectSpeech_, windowTitle_),
      editWords_(objectSpeech_),
      editReaders_({p.messages, p.windows, p.memory}, objectSpeech_, controlReaders_, editWords_),
      objectDescriber_({p.panel, p.windows, p.accessibility},
                       {keys_, pronouncer_, speaker_, eventSounds_, crashLearning_, crashReport_},
                       {desktopWindows_, accessibilityQuery_, topWindow_, objectSpeech_, editWords_,
                        menuReader_, controlReaders_, listBoxReader_, listViewReader_, editReaders_}),
      registryLayer_(p.registry, p.ansi),
      autoStart_(registryLayer_, spokenDialogs_),
      help_(p.dialogs, p.panel, clicks_, speaker_, spokenDialogs_, midiPort_),
      pollLoop_({p.input, p.panel, p.clock}, keys_, clicks_, speaker_, midiPort_, positionTones_,
                eventSounds_, objectDescriber_),
      runCycle_(p, {engine_, speaker_, spokenDialogs_, midiPort_, positionTones_, delayLoop_, settingsFile_,
                    midiSwitch_, toneCommands_, voices_, crashLearning_, desktopWindows_, help_, pollLoop_}) {
}

void Mouse::Form_Load() {
  Handle([this] { runCycle_.Form_Load(); });
}
void Mouse::Form_Terminate() {
  Handle([this] { runCycle_.Form_Terminate(); });
}
void Mouse::Form_Click() {}
void Mouse::RequestQuit() {
  Handle([this] { runCycle_.RequestQuit(); });
}
void Mouse::Timer1_Timer() {
  Handle([this] { pollLoop_.Timer1_Timer(); });
}
void Mouse::WinHook1_Message(std::int32_t message) {
  Handle([this, message] { clicks_.Take(message); });
}

void Mouse::mnuFileMinimize_Click() {
  Handle([this] { runCycle_.mnuFileMinimize_Click(); });
}
void Mouse::mnuFileExit_Click() {
  Handle([this] { runCycle_.mnuFileExit_Click(); });
}
void Mouse::mnuMidiOnOff_Click() {
  Handle([this] { midiSwitch_.mnuMidiOnOff_Click(); });
}
void Mouse::mnuMidiMouseInstrumentPreset_Click() { cmdMouseInstrumentPreset_Click(); }
void Mouse::mnuMidiHorizInstrument_Click() {
  Handle([this] { toneCommands_.ChangeHorizontalInstrument(); });
}
void Mouse::mnuMidiHorizVolume_Click() {
  Handle([this] { toneCommands_.mnuMidiHorizVolume_Click(); });
}
void Mouse::mnuMidiVertInstrument_Click() {
  Handle([this] { toneCommands_.ChangeVerticalInstrument(); });
}
void Mouse::mnuMidiVertVolume_Click() {
  Handle([this] { toneCommands_.mnuMidiVertVolume_Click(); });
}
void Mouse::mnuMidiMouseMelodyFormat_Click() { cmdChangeMouseMelodyFormat_Click(); }
void Mouse::mnuMidiDingVolume_Click() {
  Handle([this] { toneCommands_.mnuMidiDingVolume_Click(); });
}
void Mouse::mnuMidiKeyboardScaling_Click() {
  Handle([this] { toneCommands_.mnuMidiKeyboardScaling_Click(); });
}
void Mouse::mnuVoiceVolume_Click() {
  Handle([this] { voices_.mnuVoiceVolume_Click(); });
}
void Mouse::mnuVoiceSlowDown_Click() { cmdSlowDownVoice_Click(); }
void Mouse::mnuVoiceSpeedUp_Click() { cmdSpeedUpVoice_Click(); }
void Mouse::mnuVoiceMary_Click() { cmdVoiceMary_Click(); }
void Mouse::mnuVoiceMike_Click() { cmdVoiceMike_Click(); }
void Mouse::mnuVoiceSam_Click() { cmdVoiceSam_Click(); }
void Mouse::mnuVoiceMute_Click() {
  Handle([this] { voices_.mnuVoiceMute_Click(); });
}
void Mouse::mnuVoiceClearSapiVersion_Click() {
  Handle([this] { voices_.mnuVoiceClearSapiVersion_Click(); });
}
void Mouse::mnuHelpInstructions_Click() {
  Handle([this] { help_.mnuHelpInstructions_Click(); });
}
void Mouse::mnuHelpAbout_Click() {
  Handle([this] { help_.mnuHelpAbout_Click(); });
}
void Mouse::mnuProgramMakeAutoStart_Click() {
  Handle([this] { autoStart_.mnuProgramMakeAutoStart_Click(); });
}
void Mouse::mnuProgramMakeNotAutoStart_Click() {
  Handle([this] { autoStart_.mnuProgramMakeNotAutoStart_Click(); });
}
void Mouse::mnuTroubleCrashReport_Click() {
  Handle([this] { crashReport_.mnuTroubleCrashReport_Click(); });
}

void Mouse::cmdVoiceSam_Click() {
  Handle([this] { voices_.cmdVoiceSam_Click(); });
}
void Mouse::cmdVoiceMike_Click() {
  Handle([this] { voices_.cmdVoiceMike_Click(); });
}
void Mouse::cmdVoiceMary_Click() {
  Handle([this] { voices_.cmdVoiceMary_Click(); });
}
void Mouse::cmdSpeedUpVoice_Click() {
  Handle([this] { voices_.cmdSpeedUpVoice_Click(); });
}
void Mouse::cmdSlowDownVoice_Click() {
  Handle([this] { voices_.cmdSlowDownVoice_Click(); });
}
void Mouse::cmdMouseInstrumentPreset_Click() {
  Handle([this] { toneCommands_.cmdMouseInstrumentPreset_Click(); });
}
void Mouse::cmdChangeMouseMelodyFormat_Click() {
  Handle([this] { toneCommands_.cmdChangeMouseMelodyFormat_Click(); });
}

}  // namespace pointalk
