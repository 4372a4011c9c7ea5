#include "speech/engine.h"

#include <optional>
#include <tuple>

namespace pointalk {

Engine::Engine(Sapi5Voice& sapi5, Sapi4Control& sapi4, Panel& panel)
    : sapi5_(sapi5),
      sapi4_(sapi4),
      object_(sapi5, sapi4),
      sapi5Calls_(object_),
      sapi4Calls_(object_, panel) {}

Engine::Found Engine::CreateBoth() {
  Found found;
  if (sapi5_.Create()) {
    object_.Set(EngineObject::Kind::kSapi5);
    found.mHaveSapi5 = sapi5_.Rate().has_value();
  }
  found.mHaveSapi4 = sapi4_.Create() && sapi4_.Speed().has_value();
  return found;
}

// A voice that refuses any of this is not heard.
void Engine::SayBySapi5(TextView text, double rate) {
  std::ignore = sapi5_.SetRate(rate);
  std::ignore = sapi5_.Speak(u" ", kSpeakAsyncPurge);
  std::ignore = sapi5_.Speak(text, std::nullopt);
}

void Engine::KeepChosen() {
  if (mSapiVersion == 4) {
    object_.Set(EngineObject::Kind::kSapi4);
    sapi5_.Release();
  } else {
    sapi4_.Release();
  }
}

EngineCalls& Engine::Calls() {
  if (mSapiVersion == 5) return sapi5Calls_;
  return sapi4Calls_;
}

}  // namespace pointalk
