#include "app/panel_table.h"

#include "app/mouse.h"

namespace pointalk {
namespace {

constexpr Shortcut kNoKey = Shortcut::kNone;

constexpr MenuEntry kMenu[] = {
    {u"mnuFile", u"&File"},
    {u"mnuFileMinimize", u"&Minimize Control Panel ", kNoKey, false, &Mouse::mnuFileMinimize_Click},
    {u"mnuFileExit", u"E&xit", kNoKey, false, &Mouse::mnuFileExit_Click},
    {u"mnuMidi", u"&Midi"},
    {u"mnuMidiOnOff", u"Midi On/Off", kNoKey, true, &Mouse::mnuMidiOnOff_Click},
    {u"mnuMidiMouseInstrumentPreset", u"Mouse Instrument Preset", kNoKey, false,
     &Mouse::mnuMidiMouseInstrumentPreset_Click},
    {u"mnuMidiHorizInstrument", u"Horizontal Instrument", kNoKey, false,
     &Mouse::mnuMidiHorizInstrument_Click},
    {u"mnuMidiHorizVolume", u"Horizontal Volume", kNoKey, false, &Mouse::mnuMidiHorizVolume_Click},
    {u"mnuMidiVertInstrument", u"Vertical Instrument", kNoKey, false, &Mouse::mnuMidiVertInstrument_Click},
    {u"mnuMidiVertVolume", u"Vertical Volume", kNoKey, false, &Mouse::mnuMidiVertVolume_Click},
    {u"mnuMidiMouseMelodyFormat", u"Mouse Melody Format", kNoKey, false,
     &Mouse::mnuMidiMouseMelodyFormat_Click},
    {u"mnuMidiDingVolume", u"Ding Volume", kNoKey, false, &Mouse::mnuMidiDingVolume_Click},
    {u"mnuMidiKeyboardScaling", u"Keyboard Scaling For Midi Volumes", kNoKey, false,
     &Mouse::mnuMidiKeyboardScaling_Click},
    {u"mnuVoice", u"&Voice"},
    {u"mnuVoiceVolume", u"Voice Volume", kNoKey, false, &Mouse::mnuVoiceVolume_Click},
    {u"mnuVoiceSlowDown", u"Slow Down", Shortcut::kF11, false, &Mouse::mnuVoiceSlowDown_Click},
    {u"mnuVoiceSpeedUp", u"Speed Up", Shortcut::kF12, false, &Mouse::mnuVoiceSpeedUp_Click},
    {u"mnuVoiceMary", u"Use Mary", kNoKey, false, &Mouse::mnuVoiceMary_Click},
    {u"mnuVoiceMike", u"Use Mike", kNoKey, false, &Mouse::mnuVoiceMike_Click},
    {u"mnuVoiceSam", u"Use Sam", kNoKey, false, &Mouse::mnuVoiceSam_Click},
    {u"mnuVoiceMute", u"Mute Voice", Shortcut::kControlM, false, &Mouse::mnuVoiceMute_Click},
    {u"mnuVoiceClearSapiVersion", u"Clear Sapi Version", kNoKey, false,
     &Mouse::mnuVoiceClearSapiVersion_Click},
    {u"mnuHelp", u"&Help"},
    {u"mnuHelpInstructions", u"Instructions", Shortcut::kF1, false, &Mouse::mnuHelpInstructions_Click},
    {u"mnuHelpAbout", u"About Pointalk", kNoKey, false, &Mouse::mnuHelpAbout_Click},
    {u"mnuProgram", u"&Program"},
    {u"mnuProgramMakeAutoStart", u"Make AutoStart", kNoKey, false, &Mouse::mnuProgramMakeAutoStart_Click},
    {u"mnuProgramMakeNotAutoStart", u"Make Not AutoStart", kNoKey, false,
     &Mouse::mnuProgramMakeNotAutoStart_Click},
    {u"mnuTrouble", u"&TroubleShooting"},
    {u"mnuTroubleCrashReport", u"Send Crash Report", kNoKey, false, &Mouse::mnuTroubleCrashReport_Click},
};

constexpr PanelButton kButtons[] = {
    {u"cmdVoiceSam", u"Voice Sam", &Mouse::cmdVoiceSam_Click},
    {u"cmdVoiceMike", u"Voice Mike", &Mouse::cmdVoiceMike_Click},
    {u"cmdVoiceMary", u"Voice Mary", &Mouse::cmdVoiceMary_Click},
    {u"cmdSpeedUpVoice", u"Speed Up", &Mouse::cmdSpeedUpVoice_Click},
    {u"cmdSlowDownVoice", u"Slow Down", &Mouse::cmdSlowDownVoice_Click},
    {u"cmdMouseInstrumentPreset", u"Instrument Preset", &Mouse::cmdMouseInstrumentPreset_Click},
    {u"cmdChangeMouseMelodyFormat", u"Melody Format", &Mouse::cmdChangeMouseMelodyFormat_Click},
};

}  // namespace

std::span<const MenuEntry> PanelMenu() { return kMenu; }

std::span<const PanelButton> PanelButtons() { return kButtons; }

Handler FindHandler(TextView controlName) {
  for (const MenuEntry& entry : kMenu) {
    if (entry.name == controlName) return entry.handler;
  }
  for (const PanelButton& button : kButtons) {
    if (button.name == controlName) return button.handler;
  }
  return nullptr;
}

}  // namespace pointalk
