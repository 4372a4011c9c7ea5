// The two help commands.
#pragma once

#include "app/input_state.h"
#include "app/spoken_dialogs.h"
#include "platform/dialogs.h"
#include "platform/panel.h"
#include "speech/speaker.h"
#include "tones/midi_port.h"

namespace pointalk {

class Help {
 public:
  Help(Dialogs& theDialogs, Panel& thePanel, InputState& theInput, Speaker& theSpeaker,
       SpokenDialogs& theSpokenDialogs, MidiPort& thePort)
      : dialogs(theDialogs),
        panel(thePanel),
        input(theInput),
        speaker(theSpeaker),
        spokenDialogs(theSpokenDialogs),
        port(thePort) {}

  // Says and shows the instructions, and thanks.
  void Instruct();

  void mnuHelpInstructions_Click();
  void mnuHelpAbout_Click();

 private:
  Dialogs& dialogs;
  Panel& panel;
  InputState& input;
  Speaker& speaker;
  SpokenDialogs& spokenDialogs;
  MidiPort& port;
};

}  // namespace pointalk
