// The engine called as SAPI 5.
#pragma once

#include "speech/engine_calls.h"
#include "speech/engine_object.h"

namespace pointalk {

class Sapi5Calls final : public EngineCalls {
 public:
  explicit Sapi5Calls(EngineObject& object) : object_(object) {}

  void Silence() override;
  void Say(TextView text) override;
  void SayAndWait(TextView text) override;
  std::vector<Text> VoiceDescriptions() override;
  std::int32_t UseVoice(const NamedVoice& named) override;
  std::int32_t ApplyVoice(std::int32_t selection, std::int32_t volume, std::optional<double> rate) override;
  void SetVolume(std::int32_t percent) override;
  void SetStartSpeed() override;
  void ChangeSpeed(int direction) override;
  double FileSpeed() override;
  void SetFileSpeed(double speed) override;

 private:
  EngineObject& object_;
};

}  // namespace pointalk
