// The two generations of speech engines. The form's calls, with all that they carry, go to the voice's
// thread.
#pragma once

#include "platform/speech_engines.h"
#include "win32/voice_thread.h"

namespace pointalk::win32 {

class WinSapi5Voice final : public Sapi5Voice {
 public:
  explicit WinSapi5Voice(VoiceThread& thread) : thread_(thread) {}

  bool Create() override;
  void Release() override;
  std::optional<double> Rate() override;
  bool SetRate(double rate) override;
  bool SetVolume(double volume) override;
  std::optional<std::int32_t> VoiceCount() override;
  std::optional<Text> VoiceDescription(std::int32_t index) override;
  bool SetVoice(std::int32_t index) override;
  bool Speak(TextView text, std::optional<int> flags) override;

  // False for a voice that does not tell, but true for one that does not answer within so many milliseconds.
  bool IsSpeaking(DWORD limit);

 private:
  VoiceThread& thread_;
  bool created_ = false;
};

class WinSapi4Control final : public Sapi4Control {
 public:
  explicit WinSapi4Control(VoiceThread& thread) : thread_(thread) {}

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

  // Also true for a control that does not tell, from a text on until it is reset, or does not answer within
  // so many milliseconds.
  bool IsSpeaking(DWORD limit);

 private:
  VoiceThread& thread_;
  bool created_ = false;
};

}  // namespace pointalk::win32
