// The three ways in which anything is said. Every utterance cuts off the one before it.
#pragma once

#include "input/clicks.h"
#include "input/keys.h"
#include "speech/engine.h"
#include "speech/pronouncer.h"
#include "text/text.h"

namespace pointalk {

class Speaker {
 public:
  Speaker(Keys& keys, Clicks& clicks, Engine& engine, Pronouncer& pronouncer)
      : keys_(keys), clicks_(clicks), engine_(engine), pronouncer_(pronouncer) {}

  // The class of what is being described, as the platform gives it: texts about a clock are said as times.
  void SetSubject(TextView className) { subject_ = className; }

  // Everyday output: rewritten for the ear, and not said again while no other text is said.
  void SpeakText(TextView text);

  // As written, at once. The click that waits is forgotten.
  void SpeakRaw(TextView text);

  // As written, returning once it is spoken. With SAPI 4 events of the form are handled meanwhile.
  void SpeakAndWait(TextView text);

  // Cuts off what is being said.
  void Silence() { engine_.Calls().Silence(); }

  // Spoken once in front of the next text that SpeakText says.
  void SetSpeechPrefix(TextView prefix) { mSpeechPrefix = prefix; }
  Text TakeSpeechPrefix();

  bool HoldsSpeech() const { return mHoldSpeech; }

  void ToggleMute() { mMuted = !mMuted; }

 private:
  Keys& keys_;
  Clicks& clicks_;
  Engine& engine_;
  Pronouncer& pronouncer_;

  Text subject_;
  Text mLastSpoken;  // what SpeakText last accepted, or a marker that no text equals
  Text mSpeechPrefix;
  bool mMuted = false;
  bool mHoldSpeech = false;  // no routine sets it to true; a text that came then would go to mHeldText
  Text mHeldText;            // Kept: nothing reads it.
};

}  // namespace pointalk
