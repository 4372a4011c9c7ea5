// Keeps the user's settings in a file beside the program and brings them back.
#pragma once

#include "platform/files.h"
#include "speech/engine.h"
#include "speech/voice_settings.h"
#include "tones/channel_state.h"
#include "tones/tone_settings.h"

namespace pointalk {

class SettingsFile {
 public:
  SettingsFile(Files& theFiles, ToneSettings& theTones, VoiceSettings& theVoices, ChannelState& theChannels,
               Engine& theEngine)
      : files(theFiles), tones(theTones), voices(theVoices), channels(theChannels), engine(theEngine) {}

  // Replaces the whole file. Where that fails the old one stays.
  void WriteSettings();

  // Takes every value that the file holds, unchecked, and gives the voice's to the engine. Without a file,
  // and for a number that is too large for its field, everything stays.
  void ReadSettings();

  // Takes the choice of engine only.
  void ReadSapiSelection();

 private:
  Files& files;
  ToneSettings& tones;
  VoiceSettings& voices;
  ChannelState& channels;
  Engine& engine;

  void Apply(TextView line);
  void ApplyVoiceSpeed(double number);
  double VoiceSpeed();
};

}  // namespace pointalk
