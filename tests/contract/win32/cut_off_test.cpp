// A voice whose sound goes on after a text that cuts off: its output is stopped first.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/contract/win32/win_world.h"

namespace pointalk::contract {
namespace {

using ::testing::ElementsAre;

class CutOffTest : public ::testing::Test {
 protected:
  ~CutOffTest() override { SetEnvironmentVariableW(L"POINTALK_SAPI5_OUTPUT", nullptr); }

  // What is heard of a text that cuts off, from a voice whose output does that; null for a voice without one.
  std::vector<std::string> HeardWith(const wchar_t* output, std::size_t count) {
    SetEnvironmentVariableW(L"POINTALK_SAPI5_OUTPUT", output);
    WinWorld world{{}};
    Sapi5Voice& voice = world.platform.sapi5;
    EXPECT_TRUE(voice.Create());
    EXPECT_TRUE(voice.Speak(u"x", kSpeakAsyncPurge));
    auto heard = world.Heard(count);
    voice.Release();
    return heard;
  }
};

TEST_F(CutOffTest, TheOutputIsAskedForAndStoppedBeforeEachCallThatCutsOff) {
  SetEnvironmentVariableW(L"POINTALK_SAPI5_OUTPUT", L"audio");
  WinWorld world{{}};
  Sapi5Voice& voice = world.platform.sapi5;
  ASSERT_TRUE(voice.Create());
  EXPECT_TRUE(voice.Speak(u" ", kSpeakAsyncPurge));
  EXPECT_TRUE(voice.Speak(u"ok", kSpeakPurgeFirst));
  EXPECT_TRUE(voice.Speak(u"<ok", kSpeakAsyncPurge));
  EXPECT_TRUE(voice.Speak(u"on", kSpeakAsync));
  EXPECT_TRUE(voice.Speak(u"on", std::nullopt));
  EXPECT_THAT(world.Heard(11), ElementsAre("sapi5 output", "sapi5 output state 1", "sapi5 speak 3 \" \"",
                                           "sapi5 output", "sapi5 output state 1", "sapi5 speak 2 \"ok\"",
                                           "sapi5 output", "sapi5 output state 1", "sapi5 speak 19 \"<ok\"",
                                           "sapi5 speak 1 \"on\"", "sapi5 speak 0 \"on\""));
  voice.Release();
}

TEST_F(CutOffTest, AVoiceThatIsNotReachedByInterfaceIsToldNothingNew) {
  EXPECT_THAT(HeardWith(nullptr, 1), ElementsAre("sapi5 speak 3 \"x\""));
}

TEST_F(CutOffTest, TheTextIsSpokenWhateverTheOutputDoes) {
  EXPECT_THAT(HeardWith(L"refused", 2), ElementsAre("sapi5 output", "sapi5 speak 3 \"x\""));
  EXPECT_THAT(HeardWith(L"file", 2), ElementsAre("sapi5 output", "sapi5 speak 3 \"x\""));
  EXPECT_THAT(HeardWith(L"stuck", 3),
              ElementsAre("sapi5 output", "sapi5 output state 1", "sapi5 speak 3 \"x\""));
}

}  // namespace
}  // namespace pointalk::contract
