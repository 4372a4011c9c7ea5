// The three ways in which anything is said. Every utterance cuts off the one before it.
#pragma once

#include <cstdint>

#include "app/input_state.h"
#include "platform/input.h"
#include "platform/panel.h"
#include "platform/text.h"
#include "speech/engine.h"
#include "speech/pronouncer.h"
#include "speech/voice_settings.h"

namespace pointalk {

class Speaker {
 public:
  Speaker(Input& theKeys, Panel& thePanel, InputState& theInput, const VoiceSettings& theSettings,
          Engine& theEngine, Pronouncer& thePronouncer)
      : keys(theKeys),
        panel(thePanel),
        input(theInput),
        settings(theSettings),
        engine(theEngine),
        pronouncer(thePronouncer) {}

  // Everyday output: rewritten for the ear, and not said again while nothing else is said.
  void SpeakText(TextView text);

  // As written, at once.
  void SpeakRaw(TextView text);

  // As written, returning once it is spoken. With SAPI 4 events of the form are handled meanwhile.
  void SpeakAndWait(TextView text);

  // Spoken once in front of the next text that SpeakText says.
  void SetSpeechPrefix(TextView prefix) { mSpeechPrefix = prefix; }
  Text TakeSpeechPrefix();

  bool HoldsSpeech() const { return mHoldSpeech; }

  void mnuVoiceMute_Click();

 private:
  Input& keys;
  Panel& panel;
  InputState& input;
  const VoiceSettings& settings;
  Engine& engine;
  Pronouncer& pronouncer;

  Text mLastSpoken;  // what SpeakText last accepted, or a marker that no text equals
  Text mSpeechPrefix;
  bool mMuted = false;
  bool mHoldSpeech = false;  // nothing sets it; a text that came meanwhile would be parked in mHeldText
  Text mHeldText;

  void InterruptAndSpeak(TextView text);
  void WaitForLastWord(std::size_t length);
  double LastWordPosition();
};

}  // namespace pointalk
