// Keeps the user's settings in a file beside the program and brings them back.
#pragma once

#include <optional>

#include "platform/files.h"
#include "settings/settings_text.h"
#include "settings/user_choices.h"
#include "speech/engine.h"
#include "tones/midi_port.h"
#include "tones/position_tones.h"

namespace pointalk {

class SettingsFile {
 public:
  SettingsFile(Files& files, Engine& engine, MidiPort& midiPort, PositionTones& positionTones)
      : files_(files), engine_(engine), midiPort_(midiPort), positionTones_(positionTones) {}

  // The choices are read, changed and given back as one value.
  const UserChoices& Choices() const { return choices_; }
  void Use(const UserChoices& choices) { choices_ = choices; }

  // Replaces the whole file. Where that fails the old one stays.
  void WriteSettings();

  // Takes every value that the file holds, unchecked, and gives the voice's to the engine. Without a file all
  // values stay; so does one whose number in the file is too large for its field.
  void ReadSettings();

  // Gives the engine the voice and volume that were chosen, and a rate where one is given.
  void ApplyVoice(std::optional<double> rate);

  // Takes the choice of engine only.
  void ReadSapiSelection();

 private:
  Files& files_;
  Engine& engine_;
  MidiPort& midiPort_;
  PositionTones& positionTones_;

  UserChoices choices_;

  void Apply(TextView line);
  void ApplyToTones(SettingKey key, double number);
  void TakeInstrument(int channel, double number);
};

}  // namespace pointalk
