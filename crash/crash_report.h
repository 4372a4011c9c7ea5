// Lets the user point at an object that troubles the program and send its description by mail.
#pragma once

#include "app/input_state.h"
#include "app/spoken_dialogs.h"
#include "platform/system.h"
#include "reader/object_description.h"
#include "speech/speaker.h"
#include "tones/midi_port.h"

namespace pointalk {

// The description as seven labelled lines, without a line end after the last one.
Text CrashReportText(const ObjectDescription& description);

class CrashReport {
 public:
  CrashReport(System& theSystem, const InputState& theInput, const ObjectDescription& theDescription,
              Speaker& theSpeaker, SpokenDialogs& theDialogs, MidiPort& thePort)
      : system(theSystem),
        input(theInput),
        description(theDescription),
        speaker(theSpeaker),
        dialogs(theDialogs),
        port(thePort) {}

  // Explains and arms.
  void mnuTroubleCrashReport_Click();

  // While armed, objects are described by the safest methods only.
  bool IsArmed() const { return mCrashReportArmed; }

  // Makes the report of the object last described, and disarms, if a right click or Shift asks for it.
  void ReportIfAsked();

 private:
  System& system;
  const InputState& input;
  const ObjectDescription& description;
  Speaker& speaker;
  SpokenDialogs& dialogs;
  MidiPort& port;

  bool mCrashReportArmed = false;
};

}  // namespace pointalk
