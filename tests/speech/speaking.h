// What it takes to speak on a simulated machine, with its SAPI 5 voice in use.
#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "speech/speaker.h"
#include "tests/sim/simulated.h"

namespace pointalk {

struct Speaking {
  explicit Speaking(std::string_view script = "{}") : simulated(script) {
    EXPECT_TRUE(engine.CreateBoth().mHaveSapi5);
    engine.Choose(5);
    engine.KeepChosen();
  }
  Speaking(const Speaking&) = delete;
  Speaking& operator=(const Speaking&) = delete;

  sim::Simulated simulated;
  sim::SimPlatform& platform = simulated.platform;
  Keys keys{platform.input};
  Clicks clicks;
  Engine engine{platform.sapi5, platform.sapi4, platform.panel};
  Pronouncer pronouncer{keys};
  Speaker speaker{keys, clicks, engine, pronouncer};
};

}  // namespace pointalk
