// The two simulated speech engines.
#pragma once

#include "platform/speech_engines.h"
#include "sim/machine.h"

namespace pointalk::sim {

class SimSapi5Voice final : public Sapi5Voice {
 public:
  explicit SimSapi5Voice(Machine& machine);

  bool Create() override;
  void Release() override { created_ = false; }
  std::optional<double> Rate() override;
  bool SetRate(double rate) override;
  bool SetVolume(double volume) override;
  std::optional<std::int32_t> VoiceCount() override;
  std::optional<Text> VoiceDescription(std::int32_t index) override;
  bool SetVoice(std::int32_t index) override;
  bool Speak(TextView text, std::optional<int> flags) override;

 private:
  bool HasVoice(std::int32_t index) const;

  Machine& machine_;
  bool created_ = false;
  double rate_ = 0;
};

class SimSapi4Control final : public Sapi4Control {
 public:
  explicit SimSapi4Control(Machine& machine);

  bool Create() override;
  void Release() override { created_ = false; }
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

 private:
  // Records a number that a member was given; false, with no record, for one that it cannot take.
  bool RecordNumber(std::string_view member, double value);
  bool RecordRounded(std::string_view member, double value);

  Machine& machine_;
  bool created_ = false;
  double speed_ = 0;
  std::size_t positionsRead_ = 0;
};

}  // namespace pointalk::sim
