// The engine object in use. It is called as either generation is called; a member that the object lacks
// fails.
#pragma once

#include <optional>

#include "platform/speech_engines.h"

namespace pointalk {

class Engine {
 public:
  Engine(Sapi5Voice& theSapi5, Sapi4Control& theSapi4) : sapi5(theSapi5), sapi4(theSapi4) {}

  enum class Object { kNone, kSapi5, kSapi4 };
  void SetVoice(Object object) { mVoice = object; }

  // The object in use, where it is of that generation.
  Sapi5Voice* AsSapi5() { return mVoice == Object::kSapi5 ? &sapi5 : nullptr; }
  Sapi4Control* AsSapi4() { return mVoice == Object::kSapi4 ? &sapi4 : nullptr; }

  // Both generations speak. A SAPI 4 control takes the text alone and refuses flags.
  [[nodiscard]] bool Speak(TextView text, std::optional<int> flags) {
    if (auto* voice = AsSapi5()) return voice->Speak(text, flags);
    if (auto* control = AsSapi4(); control && !flags) return control->Speak(text);
    return false;
  }

 private:
  Sapi5Voice& sapi5;
  Sapi4Control& sapi4;
  Object mVoice = Object::kNone;
};

}  // namespace pointalk
