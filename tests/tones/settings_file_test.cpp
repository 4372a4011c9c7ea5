// What is saved of a voice's speed where the engine is gone or does not tell it.
#include "tones/settings_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/sim/simulated.h"

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
  ToneSettings tones;
  VoiceSettings voices;
  ChannelState channels;
  Engine engine{simulated.platform.sapi5, simulated.platform.sapi4};
  SettingsFile file{simulated.platform.files, tones, voices, channels, engine};
};

TEST_F(SettingsFileTest, HasNoSpeedWithoutAnEngine) {
  voices.mSapiVersion = 5;
  EXPECT_THAT(Saved(), HasSubstr("VoiceSpeed = 0\r\n"));
  voices.mSapiVersion = 4;
  EXPECT_THAT(Saved(), HasSubstr("VoiceSpeed = 0\r\n"));
}

TEST_F(SettingsFileTest, TakesASpeedThatIsNotToldForNone) {
  voices.mSapiVersion = 5;
  engine.SetVoice(Engine::Object::kSapi5);
  EXPECT_THAT(Saved(), HasSubstr("VoiceSpeed = 50\r\n"));
  voices.mSapiVersion = 4;
  engine.SetVoice(Engine::Object::kSapi4);
  EXPECT_THAT(Saved(), HasSubstr("VoiceSpeed = -144\r\n"));
}

}  // namespace
}  // namespace pointalk
