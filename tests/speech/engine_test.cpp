// Which object speaks, and which generation it is called as.
#include "speech/engine.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/speech/speaking.h"

namespace pointalk {
namespace {

class EngineTest : public ::testing::Test {
 protected:
  sim::Simulated simulated{R"({"machine": {"sapi4": {}}})"};
  SpeechStack speech{simulated.platform};
  Engine& engine = speech.engine;
};

TEST_F(EngineTest, IsSilentBeforeThereIsAnObject) {
  for (const std::int32_t version : {0, 3, 4, 5}) {
    engine.Choose(version);
    engine.Calls().Say(u"Hello");
    engine.Calls().SayAndWait(u"Hello");
    engine.Calls().Silence();
    EXPECT_EQ(engine.Calls().FileSpeed(), 0);
  }
  EXPECT_EQ(simulated.transcript(), "");
}

TEST_F(EngineTest, FindsBothGenerations) {
  const Engine::Found found = engine.CreateBoth();
  EXPECT_TRUE(found.mHaveSapi5);
  EXPECT_TRUE(found.mHaveSapi4);
  EXPECT_FALSE(engine.IsChosen());
}

TEST_F(EngineTest, SpeaksWithSapi5CalledAsSapi4UntilTheChoiceIsKept) {
  std::ignore = engine.CreateBoth();
  engine.Choose(4);
  engine.Calls().Say(u"Chosen");
  EXPECT_EQ(simulated.transcript(), "sapi5 speak 0 \"Chosen\"\n");
  engine.Calls().SayAndWait(u"Waited");
  EXPECT_EQ(simulated.transcript(), "sapi5 speak 0 \"Chosen\"\nsapi5 speak 0 \"Waited\"\n");
  engine.KeepChosen();
  engine.Calls().Say(u"Kept");
  EXPECT_TRUE(simulated.transcript().ends_with("sapi4 reset\nsapi4 speak \"Kept\"\n"))
      << simulated.transcript();
  EXPECT_FALSE(simulated.platform.sapi5.Speak(u"Gone", std::nullopt));
}

TEST_F(EngineTest, ReleasesSapi4UnlessItIsChosen) {
  for (const std::int32_t version : {0, 3, 5}) {
    std::ignore = engine.CreateBoth();
    engine.Choose(version);
    engine.KeepChosen();
    EXPECT_EQ(engine.IsChosen(), version == 5);
    EXPECT_FALSE(simulated.platform.sapi4.Speak(u"Gone")) << version;
    EXPECT_TRUE(simulated.platform.sapi5.Rate().has_value()) << version;
  }
}

TEST_F(EngineTest, ChangesNoSpeedOfAnObjectThatIsNotOfTheChosenVersion) {
  std::ignore = engine.CreateBoth();
  engine.Choose(4);
  engine.Calls().ChangeSpeed(1);
  EXPECT_EQ(simulated.transcript(), "");
  EXPECT_EQ(engine.Calls().FileSpeed(), 0);
}

TEST_F(EngineTest, KnowsPlacesOfVoicesInSapi5Only) {
  std::ignore = engine.CreateBoth();
  engine.Choose(4);
  EXPECT_TRUE(engine.Calls().VoiceDescriptions().empty());
}

}  // namespace
}  // namespace pointalk
