// The user's switch for MIDI, and the question whether to go on without it.
#pragma once

#include "platform/panel.h"
#include "platform/system.h"
#include "speech/spoken_dialogs.h"
#include "tones/midi_port.h"

namespace pointalk {

class MidiSwitch {
 public:
  MidiSwitch(Panel& panel, System& system, SpokenDialogs& spokenDialogs, MidiPort& midiPort)
      : panel_(panel), system_(system), spokenDialogs_(spokenDialogs), midiPort_(midiPort) {}

  // Opens the port. The first time that it cannot be had, the user is asked whether to go on without; any
  // answer but Yes ends the program.
  void OpenMidiOut();

  void mnuMidiOnOff_Click();

 private:
  Panel& panel_;
  System& system_;
  SpokenDialogs& spokenDialogs_;
  MidiPort& midiPort_;

  bool mMidiPromptShown = false;  // the question was answered with Yes; failures are silent from then on

  bool WantsToRunWithoutMidi();
};

}  // namespace pointalk
