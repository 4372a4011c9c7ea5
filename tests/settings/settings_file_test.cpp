// What is saved of a voice's speed where the engine is gone or does not tell it.
#include "settings/settings_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/speech/speaking.h"

namespace pointalk {
namespace {

using ::testing::HasSubstr;

class SettingsFileTest : public ::testing::Test {
 protected:
  std::string Saved() {
    file.WriteSettings();
    const Text text = simulated.machine.setup.files.at(u"program\\PTK.ini");
    return {text.begin(), text.end()};
  }

  sim::Simulated simulated{R"({"machine": {"sapi4": {"speed": 150}}})"};
  MidiPort port{simulated.platform.midi};
  PositionTones positionTones{port};
  SpeechStack speech{simulated.platform};
  Engine& engine = speech.engine;
  SettingsFile file{simulated.platform.files, engine, port, positionTones};
};

TEST_F(SettingsFileTest, HasNoSpeedWithoutAnEngine) {
  for (const std::int32_t version : {5, 4}) {
    engine.Choose(version);
    EXPECT_THAT(Saved(), HasSubstr("VoiceSpeed = 0\r\n"));
  }
}

TEST_F(SettingsFileTest, TakesASpeedThatIsNotToldForNone) {
  EXPECT_TRUE(engine.CreateBoth().mHaveSapi5);
  simulated.platform.sapi5.Release();
  simulated.platform.sapi4.Release();
  engine.Choose(5);
  EXPECT_THAT(Saved(), HasSubstr("VoiceSpeed = 50\r\n"));
  engine.Choose(4);
  engine.KeepChosen();
  EXPECT_THAT(Saved(), HasSubstr("VoiceSpeed = -144\r\n"));
}

}  // namespace
}  // namespace pointalk
