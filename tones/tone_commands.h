// The commands that change how the pointer sounds.
#pragma once

#include <cstdint>
#include <optional>

#include "app/spoken_dialogs.h"
#include "platform/panel.h"
#include "tones/midi_port.h"
#include "tones/settings_file.h"
#include "tones/tone_settings.h"

namespace pointalk {

class ToneCommands {
 public:
  ToneCommands(Panel& thePanel, SpokenDialogs& theDialogs, ToneSettings& theSettings, MidiPort& thePort,
               SettingsFile& theFile)
      : panel(thePanel), dialogs(theDialogs), settings(theSettings), port(thePort), file(theFile) {}

  void ChangeHorizontalInstrument();
  void ChangeVerticalInstrument();
  void cmdMouseInstrumentPreset_Click();
  void cmdChangeMouseMelodyFormat_Click();
  void mnuMidiHorizVolume_Click();
  void mnuMidiVertVolume_Click();
  void mnuMidiDingVolume_Click();
  void mnuMidiKeyboardScaling_Click();

 private:
  Panel& panel;
  SpokenDialogs& dialogs;
  ToneSettings& settings;
  MidiPort& port;
  SettingsFile& file;

  // The port is closed, and the timer off, while an instrument, a preset or a format is asked for.
  void CloseTones();
  void SaveAndReopen();

  void ChangeInstrument(int channel, TextView title, TextView prompt);
  void ChangeVolume(std::int32_t& volume, TextView name);
  std::optional<std::int32_t> AskPercent(TextView present, TextView amount, TextView name);
};

}  // namespace pointalk
