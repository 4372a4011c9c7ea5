// speech-dispatcher in the shape of a SAPI 5 voice, and no SAPI 4.
#pragma once

#include "linux/notices.h"
#include "linux/speech_client.h"
#include "linux/waiting.h"
#include "platform/speech_engines.h"

namespace pointalk::linux {

class LinuxSapi5Voice final : public Sapi5Voice {
 public:
  LinuxSapi5Voice(SpeechClient& client, Waiting& waiting, Notices& notices)
      : client_(client), waiting_(waiting), notices_(notices) {}

  // Where there is no server the voice is silent, the user is told what is missing, and the rest works.
  bool Create() override;
  void Release() override { isCreated_ = false; }
  std::optional<double> Rate() override;
  bool SetRate(double rate) override;
  bool SetVolume(double volume) override;

  // First the user's own voice, then a man's, another man's and a woman's, and then those of the synthesizer
  // for the user's language, which are counted once one of them was chosen.
  std::optional<std::int32_t> VoiceCount() override;
  std::optional<Text> VoiceDescription(std::int32_t index) override;
  bool SetVoice(std::int32_t index) override;
  bool Speak(TextView text, std::optional<int> flags) override;

 private:
  SpeechClient& client_;
  Waiting& waiting_;
  Notices& notices_;
  bool isCreated_ = false;
};

class LinuxSapi4Control final : public Sapi4Control {
 public:
  bool Create() override { return false; }
  void Release() override {}
  std::optional<double> Speed() override { return std::nullopt; }
  bool SetSpeed(double) override { return false; }
  bool SetVolumeLeft(double) override { return false; }
  bool SetVolumeRight(double) override { return false; }
  std::optional<double> Find(TextView) override { return std::nullopt; }
  bool Select(double) override { return false; }
  bool AudioReset() override { return false; }
  bool Speak(TextView) override { return false; }
  std::optional<double> LastWordPosition() override { return std::nullopt; }
  bool SetLastWordPosition(double) override { return false; }
};

}  // namespace pointalk::linux
