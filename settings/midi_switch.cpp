#include "settings/midi_switch.h"

namespace pointalk {
namespace {

constexpr TextView kNoDeviceTitle =
    u"Can't find an available Midi Device; you may need to quit some other midi app";
constexpr TextView kNoDeviceText =
    u"The Midi device is already in use by another program. If I were you I would quit from the other "
    u"program first. If the other program is not running anymore then you'll need to reboot to free up your "
    u"midi port again. Do you want to run without midi?";

}  // namespace

void MidiSwitch::OpenMidiOut() {
  if (!midiPort_.HasDevice() && !mMidiPromptShown) {
    if (!WantsToRunWithoutMidi()) system_.EndProgram();
    mMidiPromptShown = true;
    return;
  }
  if (midiPort_.Open() || mMidiPromptShown) return;
  if (!WantsToRunWithoutMidi()) {
    midiPort_.SilenceAll();
    system_.EndProgram();
  }
  mMidiPromptShown = true;
}

void MidiSwitch::mnuMidiOnOff_Click() {
  midiPort_.SwitchMidi(!midiPort_.MidiOn());
  // The mark and the switch are turned each on its own.
  panel_.SetMenuChecked(u"mnuMidiOnOff", !panel_.MenuChecked(u"mnuMidiOnOff"));
  if (midiPort_.MidiOn()) {
    OpenMidiOut();
  } else {
    midiPort_.CloseMidiOut();
  }
}

bool MidiSwitch::WantsToRunWithoutMidi() {
  return spokenDialogs_.AskSpoken(kNoDeviceText, kBoxYesNo, kNoDeviceTitle) == kAnswerYes;
}

}  // namespace pointalk
