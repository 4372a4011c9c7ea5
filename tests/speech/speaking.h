// What it takes to speak in a test, made here once.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "speech/speaker.h"
#include "tests/sim/simulated.h"

namespace pointalk {

// The speech of a simulated machine, with the keys and clicks that it asks for. No engine is chosen yet.
struct SpeechStack {
  explicit SpeechStack(sim::SimPlatform& platform) : SpeechStack(platform, platform.sapi4) {}

  // With another SAPI 4 control than the machine's.
  SpeechStack(sim::SimPlatform& platform, Sapi4Control& sapi4)
      : keys(platform.input), engine(platform.sapi5, sapi4, platform.panel) {}
  SpeechStack(const SpeechStack&) = delete;
  SpeechStack& operator=(const SpeechStack&) = delete;

  Keys keys;
  Clicks clicks;
  Engine engine;
  Pronouncer pronouncer{keys};
  Speaker speaker{keys, clicks, engine, pronouncer};
};

struct SpeakingMachine {
  explicit SpeakingMachine(std::string_view script) : simulated(script) {}

  sim::Simulated simulated;
  sim::SimPlatform& platform = simulated.platform;
};

// A machine and its speech, with its SAPI 5 voice in use. The machine comes first, for speech is made of its
// parts.
struct Speaking : SpeakingMachine, SpeechStack {
  explicit Speaking(std::string_view script = "{}") : SpeakingMachine(script), SpeechStack(platform) {
    EXPECT_TRUE(engine.CreateBoth().mHaveSapi5);
    engine.Choose(5);
    engine.KeepChosen();
  }
};

// The lines of an utterance of SAPI 5 that is not waited for.
inline std::string Said(const std::string& text) {
  return "sapi5 speak 3 \" \"\nsapi5 speak 3 \"" + text + "\"\n";
}

}  // namespace pointalk
