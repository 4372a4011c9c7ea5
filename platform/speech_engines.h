// Seam: the two generations of speech engines, in the shapes in which they are called.
#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace pointalk {

// Flags of Sapi5Voice::Speak.
inline constexpr int kSpeakAsync = 1;       // return at once
inline constexpr int kSpeakPurgeFirst = 2;  // cut off what is being said
inline constexpr int kSpeakAsyncPurge = kSpeakAsync | kSpeakPurgeFirst;

// A SAPI 5 voice. Every member fails while it is not created. Numbers are given to the engine as they are; it
// rounds them to whole numbers, halves to even, and refuses what it cannot take.
class Sapi5Voice {
 public:
  virtual ~Sapi5Voice() = default;

  [[nodiscard]] virtual bool Create() = 0;
  virtual void Release() = 0;

  virtual std::optional<double> Rate() = 0;  // whole, -10 to 10
  [[nodiscard]] virtual bool SetRate(double rate) = 0;
  [[nodiscard]] virtual bool SetVolume(double volume) = 0;  // 0 to 100

  virtual std::optional<std::int32_t> VoiceCount() = 0;
  virtual std::optional<Text> VoiceDescription(std::int32_t index) = 0;  // index from 0
  [[nodiscard]] virtual bool SetVoice(std::int32_t index) = 0;           // false for an index out of range

  // Speaks with the flags above, or with none given: then it returns when the text has been spoken.
  // With kSpeakAsync it may not be known yet whether the engine takes the text; then it gives true.
  [[nodiscard]] virtual bool Speak(TextView text, std::optional<int> flags) = 0;
};

// A SAPI 4 text-to-speech control. Every member fails while it is not created.
class Sapi4Control {
 public:
  virtual ~Sapi4Control() = default;

  [[nodiscard]] virtual bool Create() = 0;
  virtual void Release() = 0;

  virtual std::optional<double> Speed() = 0;  // words a minute
  [[nodiscard]] virtual bool SetSpeed(double speed) = 0;
  [[nodiscard]] virtual bool SetVolumeLeft(double volume) = 0;   // 0 to 100
  [[nodiscard]] virtual bool SetVolumeRight(double volume) = 0;  // 0 to 100

  // The number of the first voice that meets the criteria ("Mfg=...;Gender=...").
  virtual std::optional<double> Find(TextView criteria) = 0;
  [[nodiscard]] virtual bool Select(double voice) = 0;

  // These two return at once; true also where it is not known yet whether the engine takes them.
  [[nodiscard]] virtual bool AudioReset() = 0;  // cuts off what is being said
  [[nodiscard]] virtual bool Speak(TextView text) = 0;

  // Character position of the last word spoken; 0 before the first and after the last.
  virtual std::optional<double> LastWordPosition() = 0;
  [[nodiscard]] virtual bool SetLastWordPosition(double position) = 0;
};

}  // namespace pointalk
