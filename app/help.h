// The two help commands.
#pragma once

#include "input/clicks.h"
#include "platform/dialogs.h"
#include "platform/panel.h"
#include "speech/speaker.h"
#include "speech/spoken_dialogs.h"
#include "tones/midi_port.h"

namespace pointalk {

class Help {
 public:
  Help(Dialogs& dialogs, Panel& panel, Clicks& clicks, Speaker& speaker, SpokenDialogs& spokenDialogs,
       MidiPort& midiPort)
      : dialogs_(dialogs),
        panel_(panel),
        clicks_(clicks),
        speaker_(speaker),
        spokenDialogs_(spokenDialogs),
        midiPort_(midiPort) {}

  // Says and shows the instructions, and thanks.
  void Instruct();

  void mnuHelpInstructions_Click();
  void mnuHelpAbout_Click();

 private:
  Dialogs& dialogs_;
  Panel& panel_;
  Clicks& clicks_;
  Speaker& speaker_;
  SpokenDialogs& spokenDialogs_;
  MidiPort& midiPort_;
};

}  // namespace pointalk
