// The engine called as SAPI 4.
#pragma once

#include <cstddef>

#include "platform/panel.h"
#include "speech/engine_calls.h"
#include "speech/engine_object.h"

namespace pointalk {

class Sapi4Calls final : public EngineCalls {
 public:
  Sapi4Calls(EngineObject& object, Panel& panel) : object_(object), panel_(panel) {}

  void Silence() override;
  void Say(TextView text) override;
  void SayAndWait(TextView text) override;  // events of the form are handled meanwhile
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
  Panel& panel_;

  void WaitForLastWord(std::size_t length);
  double LastWordPosition();
};

}  // namespace pointalk
