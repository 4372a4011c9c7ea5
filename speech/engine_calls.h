// What the program wants of its speech engine, in the words of neither generation. An engine that refuses
// something keeps what it has.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "text/text.h"

namespace pointalk {

// One of the voices that the user chooses by name.
struct NamedVoice {
  std::int32_t sapi5Place = 0;  // in the engine's voice list
  std::int32_t sapi5Code = 0;   // kept in the settings with SAPI 5
  std::int32_t sapi4Code = 0;   // kept in the settings with SAPI 4, and what its control is asked by
};

class EngineCalls {
 public:
  EngineCalls() = default;
  EngineCalls(const EngineCalls&) = delete;
  EngineCalls& operator=(const EngineCalls&) = delete;
  virtual ~EngineCalls() = default;

  // Cuts off what is being said.
  virtual void Silence() = 0;

  // Cuts off what is being said, and says the text; returns at once.
  virtual void Say(TextView text) = 0;

  // The same, returning once it is spoken.
  virtual void SayAndWait(TextView text) = 0;

  // The descriptions of the voices by their places; empty where voices have no places.
  virtual std::vector<Text> VoiceDescriptions() = 0;

  // Takes the voice, at the speed that the engine has. Gives what the settings are to keep of the choice.
  virtual std::int32_t UseVoice(const NamedVoice& named) = 0;

  // Gives the engine what the settings hold: the kept choice of a voice, then a rate where one is given, then
  // the volume. Gives the volume to be kept, which is another than the given one where that was unset.
  virtual std::int32_t ApplyVoice(std::int32_t selection, std::int32_t volume,
                                  std::optional<double> rate) = 0;

  virtual void SetVolume(std::int32_t percent) = 0;

  // The speed that start-up leaves the engine at.
  virtual void SetStartSpeed() = 0;

  // One step faster (1) or slower (-1). Only the limit in the direction of the change counts.
  virtual void ChangeSpeed(int direction) = 0;

  // The speed in the settings file's own figures; 0 where the engine has no object to tell it.
  virtual double FileSpeed() = 0;
  virtual void SetFileSpeed(double speed) = 0;
};

}  // namespace pointalk
