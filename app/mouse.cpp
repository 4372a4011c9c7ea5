// Builds the rooms and hands each event to the one that it belongs to.
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
    : delay(p.clock),
      engine(p.sapi5, p.sapi4),
      pronouncer(p.input, input, description),
      speaker(p.input, p.panel, input, voiceSettings, engine, pronouncer),
      dialogs(p.dialogs, p.panel, input, speaker),
      port(p.midi, p.panel, p.system, dialogs),
      tones(toneSettings, port),
      sounds(port, delay),
      settingsFile(p.files, toneSettings, voiceSettings, port.channels, engine),
      toneCommands(p.panel, dialogs, toneSettings, port, settingsFile),
      voices({p.sapi5, p.sapi4, p.dialogs, p.panel, p.system}, input, voiceSettings, engine, speaker, dialogs,
             port, settingsFile),
      learning(p.files, p.system, dialogs),
      report(p.system, input, description, speaker, dialogs, port),
      query(p.accessibility, description),
      objectSpeech(description, history, pronouncer, speaker),
      titles(p.messages, p.windows),
      topWindow(p.windows, desktop, titles),
      menuReader(p.menus, p.windows, p.memory, description, objectSpeech),
      controlReaders(input, description, objectSpeech, titles, sounds),
      listBoxReader(p.messages, p.windows, objectSpeech, sounds),
      listViewReader({p.messages, p.windows, p.memory, p.ansi}, desktop, history, speaker, objectSpeech,
                     titles, sounds),
      editWords(description, objectSpeech),
      editReaders({p.messages, p.windows, p.memory}, description, objectSpeech, controlReaders, editWords),
      describer({p.input, p.panel, p.windows, p.accessibility}, desktop, input, description, history, speaker,
                objectSpeech, sounds, learning, report,
                {query, topWindow, editWords, menuReader, controlReaders, listBoxReader, listViewReader,
                 editReaders}),
      registry(p.registry, p.ansi),
      autoStart(registry, dialogs),
      help(p.dialogs, p.panel, input, speaker, dialogs, port),
      clicks(input),
      poll({p.input, p.panel, p.clock}, input, description, history, pronouncer, speaker, port, tones, sounds,
           describer),
      runCycle(p, {delay, engine, voiceSettings, speaker, dialogs, port, toneSettings, tones, settingsFile,
                   voices, learning, desktop, help, poll}) {}

void Mouse::Form_Load() {
  Handle([this] { runCycle.Form_Load(); });
}
void Mouse::Form_Terminate() {
  Handle([this] { runCycle.Form_Terminate(); });
}
void Mouse::Form_Click() {}
void Mouse::RequestQuit() {
  Handle([this] { runCycle.RequestQuit(); });
}
void Mouse::Timer1_Timer() {
  Handle([this] { poll.Timer1_Timer(); });
}
void Mouse::WinHook1_Message(std::int32_t message) {
  Handle([this, message] { clicks.Note(message); });
}

void Mouse::mnuFileMinimize_Click() {
  Handle([this] { runCycle.mnuFileMinimize_Click(); });
}
void Mouse::mnuFileExit_Click() {
  Handle([this] { runCycle.mnuFileExit_Click(); });
}
void Mouse::mnuMidiOnOff_Click() {
  Handle([this] { port.mnuMidiOnOff_Click(); });
}
void Mouse::mnuMidiMouseInstrumentPreset_Click() { cmdMouseInstrumentPreset_Click(); }
void Mouse::mnuMidiHorizInstrument_Click() {
  Handle([this] { toneCommands.ChangeHorizontalInstrument(); });
}
void Mouse::mnuMidiHorizVolume_Click() {
  Handle([this] { toneCommands.mnuMidiHorizVolume_Click(); });
}
void Mouse::mnuMidiVertInstrument_Click() {
  Handle([this] { toneCommands.ChangeVerticalInstrument(); });
}
void Mouse::mnuMidiVertVolume_Click() {
  Handle([this] { toneCommands.mnuMidiVertVolume_Click(); });
}
void Mouse::mnuMidiMouseMelodyFormat_Click() { cmdChangeMouseMelodyFormat_Click(); }
void Mouse::mnuMidiDingVolume_Click() {
  Handle([this] { toneCommands.mnuMidiDingVolume_Click(); });
}
void Mouse::mnuMidiKeyboardScaling_Click() {
  Handle([this] { toneCommands.mnuMidiKeyboardScaling_Click(); });
}
void Mouse::mnuVoiceVolume_Click() {
  Handle([this] { voices.mnuVoiceVolume_Click(); });
}
void Mouse::mnuVoiceSlowDown_Click() { cmdSlowDownVoice_Click(); }
void Mouse::mnuVoiceSpeedUp_Click() { cmdSpeedUpVoice_Click(); }
void Mouse::mnuVoiceMary_Click() { cmdVoiceMary_Click(); }
void Mouse::mnuVoiceMike_Click() { cmdVoiceMike_Click(); }
void Mouse::mnuVoiceSam_Click() { cmdVoiceSam_Click(); }
void Mouse::mnuVoiceMute_Click() {
  Handle([this] { speaker.mnuVoiceMute_Click(); });
}
void Mouse::mnuVoiceClearSapiVersion_Click() {
  Handle([this] { voices.mnuVoiceClearSapiVersion_Click(); });
}
void Mouse::mnuHelpInstructions_Click() {
  Handle([this] { help.mnuHelpInstructions_Click(); });
}
void Mouse::mnuHelpAbout_Click() {
  Handle([this] { help.mnuHelpAbout_Click(); });
}
void Mouse::mnuProgramMakeAutoStart_Click() {
  Handle([this] { autoStart.mnuProgramMakeAutoStart_Click(); });
}
void Mouse::mnuProgramMakeNotAutoStart_Click() {
  Handle([this] { autoStart.mnuProgramMakeNotAutoStart_Click(); });
}
void Mouse::mnuTroubleCrashReport_Click() {
  Handle([this] { report.mnuTroubleCrashReport_Click(); });
}

void Mouse::cmdVoiceSam_Click() {
  Handle([this] { voices.cmdVoiceSam_Click(); });
}
void Mouse::cmdVoiceMike_Click() {
  Handle([this] { voices.cmdVoiceMike_Click(); });
}
void Mouse::cmdVoiceMary_Click() {
  Handle([this] { voices.cmdVoiceMary_Click(); });
}
void Mouse::cmdSpeedUpVoice_Click() {
  Handle([this] { voices.cmdSpeedUpVoice_Click(); });
}
void Mouse::cmdSlowDownVoice_Click() {
  Handle([this] { voices.cmdSlowDownVoice_Click(); });
}
void Mouse::cmdMouseInstrumentPreset_Click() {
  Handle([this] { toneCommands.cmdMouseInstrumentPreset_Click(); });
}
void Mouse::cmdChangeMouseMelodyFormat_Click() {
  Handle([this] { toneCommands.cmdChangeMouseMelodyFormat_Click(); });
}

}  // namespace pointalk
