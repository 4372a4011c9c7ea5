// The objects of the two generations of speech engines, created by their class identifiers and called by
// member name. They belong to the voice's thread; speech_engines.h is how the form reaches them.
#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"
#include "win32/late_bound.h"

namespace pointalk::win32 {

// The members are those of the seam's Sapi5Voice.
class Sapi5Object {
 public:
  bool Create();
  void Release() { voice_ = LateBound(); }
  std::optional<double> Rate();
  bool SetRate(double rate);
  bool SetVolume(double volume);
  std::optional<std::int32_t> VoiceCount();
  std::optional<Text> VoiceDescription(std::int32_t index);
  bool SetVoice(std::int32_t index);
  bool Speak(TextView text, std::optional<int> flags);

  bool IsSpeaking();  // false for a voice that does not tell

 private:
  std::optional<LateBound> VoiceAt(std::int32_t index);

  LateBound voice_;
};

// The members are those of the seam's Sapi4Control.
class Sapi4Object {
 public:
  bool Create();
  void Release();
  std::optional<double> Speed();
  bool SetSpeed(double speed);
  bool SetVolumeLeft(double volume);
  bool SetVolumeRight(double volume);
  std::optional<double> Find(TextView criteria);
  bool Select(double voice);
  bool AudioReset();
  bool Speak(TextView text);
  std::optional<double> LastWordPosition();
  bool SetLastWordPosition(double position);

  // A control that does not tell counts as speaking from a text on until it is reset.
  bool IsSpeaking();

 private:
  LateBound control_;
  std::optional<ULONGLONG> spokeAt_;  // when it was given a text that it was not reset after, in milliseconds
};

struct Engines {
  Sapi5Object sapi5;
  Sapi4Object sapi4;
};

}  // namespace pointalk::win32
