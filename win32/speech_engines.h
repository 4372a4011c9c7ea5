// The two generations of speech engines, created by their class identifiers and called by member name.
#pragma once

#include "platform/speech_engines.h"
#include "win32/late_bound.h"

namespace pointalk::win32 {

class WinSapi5Voice final : public Sapi5Voice {
 public:
  bool Create() override;
  void Release() override { voice_ = LateBound(); }
  std::optional<double> Rate() override;
  bool SetRate(double rate) override;
  bool SetVolume(double volume) override;
  std::optional<std::int32_t> VoiceCount() override;
  std::optional<Text> VoiceDescription(std::int32_t index) override;
  bool SetVoice(std::int32_t index) override;
  bool Speak(TextView text, std::optional<int> flags) override;

  bool IsSpeaking();  // false for a voice that does not tell

 private:
  std::optional<LateBound> VoiceAt(std::int32_t index);

  LateBound voice_;
};

class WinSapi4Control final : public Sapi4Control {
 public:
  bool Create() override;
  void Release() override;
  std::optional<double> Speed() override;
  bool SetSpeed(double speed) override;
  bool SetVolumeLeft(double volume) override;
  bool SetVolumeRight(double volume) override;
  std::optional<double> Find(TextView criteria) override;
  bool Select(double voice) override;
  bool AudioReset() override;
  bool Speak(TextView text) override;
  std::optional<double> LastWordPosition() override;
  bool SetLastWordPosition(double position) override;

  // A control that does not tell counts as speaking from a text on until it is reset.
  bool IsSpeaking();

 private:
  LateBound control_;
  std::optional<ULONGLONG> spokeAt_;  // when it was given a text that it was not reset after, in milliseconds
};

}  // namespace pointalk::win32
