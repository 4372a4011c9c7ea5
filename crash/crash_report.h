// Lets the user point at an object that troubles the program and send its description by mail.
#pragma once

#include "input/clicks.h"
#include "input/keys.h"
#include "platform/system.h"
#include "speech/speaker.h"
#include "speech/spoken_dialogs.h"
#include "tones/midi_port.h"

namespace pointalk {

class CrashReport {
 public:
  CrashReport(System& system, const Keys& keys, const Clicks& clicks, Speaker& speaker,
              SpokenDialogs& spokenDialogs, MidiPort& midiPort)
      : system_(system),
        keys_(keys),
        clicks_(clicks),
        speaker_(speaker),
        spokenDialogs_(spokenDialogs),
        midiPort_(midiPort) {}

  // Explains and arms.
  void mnuTroubleCrashReport_Click();

  // While armed, objects are described by the safest methods only.
  bool IsArmed() const { return mCrashReportArmed; }

  // Makes a report of the facts, which go onto the clipboard, and disarms, if a right click or Shift asks for
  // it.
  void ReportIfAsked(TextView facts);

 private:
  System& system_;
  const Keys& keys_;
  const Clicks& clicks_;
  Speaker& speaker_;
  SpokenDialogs& spokenDialogs_;
  MidiPort& midiPort_;

  bool mCrashReportArmed = false;
};

}  // namespace pointalk
