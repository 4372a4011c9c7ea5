// The commands that change how the pointer sounds.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/panel.h"
#include "settings/midi_switch.h"
#include "settings/settings_file.h"
#include "speech/spoken_dialogs.h"
#include "tones/midi_port.h"
#include "tones/position_tones.h"

namespace pointalk {

class ToneCommands {
 public:
  ToneCommands(Panel& panel, SpokenDialogs& spokenDialogs, MidiPort& midiPort, PositionTones& positionTones,
               SettingsFile& settingsFile, MidiSwitch& midiSwitch)
      : panel_(panel),
        spokenDialogs_(spokenDialogs),
        midiPort_(midiPort),
        positionTones_(positionTones),
        settingsFile_(settingsFile),
        midiSwitch_(midiSwitch) {}

  // What start-up sets before the file is read.
  void SetFirstTones();

  void ChangeHorizontalInstrument();
  void ChangeVerticalInstrument();
  void cmdMouseInstrumentPreset_Click();
  void cmdChangeMouseMelodyFormat_Click();
  void mnuMidiHorizVolume_Click();
  void mnuMidiVertVolume_Click();
  void mnuMidiDingVolume_Click();
  void mnuMidiKeyboardScaling_Click();

 private:
  Panel& panel_;
  SpokenDialogs& spokenDialogs_;
  MidiPort& midiPort_;
  PositionTones& positionTones_;
  SettingsFile& settingsFile_;
  MidiSwitch& midiSwitch_;

  // The port is closed, and the timer off, while an instrument, a preset or a format is asked for.
  void CloseTones();
  void SaveAndReopen();

  void UsePreset(std::int32_t number);
  void UseFormat(std::int32_t format);
  void ChangeInstrument(int channel, TextView title, TextView prompt);
  void ChangeToneVolume(std::int32_t ToneSettings::*volume, TextView name);
  std::optional<std::int32_t> AskVolume(std::int32_t present, TextView name);
  std::optional<std::int32_t> AskPercent(TextView present, TextView amount, TextView name);
};

}  // namespace pointalk
