// The object through which the engine in use is reached. It may be of another generation than it is called
// as; a member that the object lacks fails.
#pragma once

#include <optional>

#include "platform/speech_engines.h"

namespace pointalk {

class EngineObject {
 public:
  EngineObject(Sapi5Voice& sapi5, Sapi4Control& sapi4) : sapi5_(sapi5), sapi4_(sapi4) {}

  enum class Kind { kNone, kSapi5, kSapi4 };
  void Set(Kind kind) { mVoice = kind; }

  // The object, where it is of that generation; else null.
  Sapi5Voice* AsSapi5() { return mVoice == Kind::kSapi5 ? &sapi5_ : nullptr; }
  Sapi4Control* AsSapi4() { return mVoice == Kind::kSapi4 ? &sapi4_ : nullptr; }

  // Both generations speak. A SAPI 4 control takes the text alone and refuses flags.
  [[nodiscard]] bool Speak(TextView text, std::optional<int> flags) {
    if (auto* voice = AsSapi5()) return voice->Speak(text, flags);
    if (auto* control = AsSapi4(); control && !flags) return control->Speak(text);
    return false;
  }

 private:
  Sapi5Voice& sapi5_;
  Sapi4Control& sapi4_;
  Kind mVoice = Kind::kNone;
};

}  // namespace pointalk
