// What is said through an engine that answers as no rehearsal's does.
#include "speech/speaker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "tests/speech/speaking.h"
#include "tests/support/forwarding.h"

namespace pointalk {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Writes its calls down. Positions are read one after the other; a reading that is missing fails.
class WrittenSapi4 final : public testing::ForwardingSapi4Control {
 public:
  using ForwardingSapi4Control::ForwardingSapi4Control;

  bool AudioReset() override {
    calls.emplace_back("reset");
    return answers;
  }
  bool Speak(TextView text) override {
    calls.push_back("speak " + ::testing::PrintToString(Text(text)));
    return answers;
  }
  std::optional<double> LastWordPosition() override {
    ++readings;
    if (positions.empty()) return std::nullopt;
    const auto position = positions.front();
    positions.pop_front();
    return position;
  }
  bool SetLastWordPosition(double position) override {
    calls.push_back("position " + std::to_string(static_cast<int>(position)));
    return answers;
  }

  bool answers = true;
  std::deque<std::optional<double>> positions;
  int readings = 0;
  std::vector<std::string> calls;
};

class SpeakerTest : public ::testing::Test {
 protected:
  SpeakerTest() {
    speech.engine.Choose(4);
    speech.engine.KeepChosen();
  }

  // How often the wait for a text of five characters put the position back.
  std::size_t PositionsPutBack(std::deque<std::optional<double>> positions) {
    sapi4.calls.clear();
    sapi4.readings = 0;
    sapi4.positions = std::move(positions);
    speaker.SpeakAndWait(u"Hello");
    return sapi4.calls.size() - 2;
  }

  sim::Simulated simulated{R"({"machine": {"sapi4": {}}})"};
  WrittenSapi4 sapi4{simulated.platform.sapi4};
  SpeechStack speech{simulated.platform, sapi4};
  Keys& keys = speech.keys;
  Clicks& clicks = speech.clicks;
  Speaker& speaker = speech.speaker;
};

TEST_F(SpeakerTest, WaitEndsWithoutAWordOrAtTheTextsEnd) {
  EXPECT_EQ(PositionsPutBack({0, 0}), 0u);
  EXPECT_EQ(sapi4.readings, 2) << "the test of the loop reads twice";
  EXPECT_EQ(PositionsPutBack({5, 3}), 0u);
  EXPECT_EQ(sapi4.readings, 2) << "whatever the first reading gives";
  EXPECT_EQ(PositionsPutBack({3, 0}), 0u);
  EXPECT_EQ(PositionsPutBack({0, 3, 3, 0, 0}), 1u) << "each reading is a fresh one";
  EXPECT_EQ(PositionsPutBack({1, 1, 1, 4, 4, 4, 99, 99}), 2u);
  EXPECT_EQ(PositionsPutBack({}), 0u) << "a reading that fails is no word";
  EXPECT_EQ(PositionsPutBack({std::nullopt, 3, std::nullopt, 3, std::nullopt}), 1u);
}

TEST_F(SpeakerTest, WaitGivesUpAtTheHundredAndFirstStallInARow) {
  std::deque<std::optional<double>> stalling;
  for (int i = 0; i < 250; ++i) stalling.insert(stalling.end(), {3, 3, 0});
  EXPECT_EQ(PositionsPutBack(stalling), 100u);
  stalling[3 * 60 + 2] = 3;  // a word in between
  EXPECT_EQ(PositionsPutBack(stalling), 161u) << "the stalls are counted anew";
}

TEST_F(SpeakerTest, WaitEndsAtOnceWithTheOtherEnginesVoice) {
  SpeechStack unkept(simulated.platform, sapi4);
  ASSERT_TRUE(unkept.engine.CreateBoth().mHaveSapi5);
  unkept.engine.Choose(4);
  unkept.speaker.SpeakAndWait(u"Hello");
  EXPECT_EQ(sapi4.readings, 0);
  EXPECT_EQ(simulated.transcript(), "sapi5 speak 0 \"Hello\"\n");
}

TEST_F(SpeakerTest, EmptyTextIsRefusedByTheWaitingSpeechAndBlanksAreNot) {
  speaker.SpeakAndWait(u"");
  EXPECT_THAT(sapi4.calls, IsEmpty());
  speaker.SpeakAndWait(u" ");
  EXPECT_THAT(sapi4.calls, ElementsAre("reset", "speak u\" \""));
}

TEST_F(SpeakerTest, EngineThatRefusesEverythingIsSpokenToAllTheSame) {
  sapi4.answers = false;
  speaker.SpeakText(u"one");
  speaker.SpeakRaw(u"two");
  speaker.SpeakAndWait(u"three");
  EXPECT_THAT(sapi4.calls,
              ElementsAre("reset", "speak u\"one\"", "reset", "speak u\"two\"", "reset", "speak u\"three\""));
}

TEST_F(SpeakerTest, PrefixWaitsForATextThatIsSaid) {
  speaker.SpeakText(u"one");
  sapi4.calls.clear();
  speaker.SetSpeechPrefix(u"Files 7, ");
  speaker.SpeakText(u"  ");
  speaker.SpeakRaw(u"raw");
  speaker.SpeakAndWait(u"waited");
  speaker.SpeakText(u"OK");
  speaker.SpeakText(u"OKAY");
  EXPECT_THAT(sapi4.calls, ElementsAre("reset", "speak u\"raw\"", "reset", "speak u\"waited\"", "reset",
                                       "speak u\"Files 7, O K\"", "reset", "speak u\"O K eigh Y\""));
}

TEST_F(SpeakerTest, PrefixOutlivesARepeatedText) {
  speaker.SpeakText(u"one");
  speaker.SetSpeechPrefix(u"Files, ");
  speaker.SpeakText(u"one");
  sapi4.calls.clear();
  speaker.SpeakText(u"two");
  EXPECT_THAT(sapi4.calls, ElementsAre("reset", "speak u\"Files, two\""));
}

TEST_F(SpeakerTest, PrefixThatIsTakenIsGone) {
  speaker.SetSpeechPrefix(u"Files, ");
  EXPECT_EQ(speaker.TakeSpeechPrefix(), u"Files, ");
  EXPECT_EQ(speaker.TakeSpeechPrefix(), u"");
}

TEST_F(SpeakerTest, PendingClickIsForgottenByRawSpeechOnlyThatSpeaks) {
  clicks.Take(513);
  speaker.SpeakText(u"one");
  speaker.SpeakAndWait(u"two");
  speaker.SpeakRaw(u"   ");
  EXPECT_EQ(clicks.Pending(), u"Click");
  speaker.SpeakRaw(clicks.Pending());
  EXPECT_EQ(clicks.Pending(), u"");
  EXPECT_EQ(sapi4.calls.back(), "speak u\"Click\"");
}

TEST_F(SpeakerTest, BlankRawSpeechStillLetsATextBeRepeated) {
  speaker.SpeakText(u"one");
  speaker.SpeakRaw(u" ");
  sapi4.calls.clear();
  speaker.SpeakText(u"one");
  EXPECT_THAT(sapi4.calls, ElementsAre("reset", "speak u\"one\""));
}

TEST_F(SpeakerTest, ShiftIsReadAnewAtEveryText) {
  simulated.machine.keys[kKeyShift].down = true;
  speaker.SpeakText(u"Ob");
  EXPECT_TRUE(keys.ShiftDown());
  const SpellingBlock block(keys);
  speaker.SpeakText(u"Cd");
  simulated.machine.keys[kKeyShift].down = false;
  speaker.SpeakText(u"Cd");
  EXPECT_FALSE(keys.ShiftDown()) << "also for a text that is not said again";
  EXPECT_THAT(sapi4.calls, ElementsAre("reset", "speak u\"Capitl O b\"", "reset", "speak u\"Cd\""));
}

TEST_F(SpeakerTest, TextsAboutTheClockAreTimes) {
  speaker.SetSubject(u"TrayClockWClass");
  speaker.SpeakText(u"10:05 AM");
  speaker.SetSubject(u"Button");
  speaker.SpeakText(u"OK");
  ASSERT_EQ(sapi4.calls.size(), 4u);
  EXPECT_THAT(sapi4.calls[1], ::testing::HasSubstr("System Clock,  1  0  oh  5"));
  EXPECT_EQ(sapi4.calls[3], "speak u\"O K\"");
}

TEST_F(SpeakerTest, SilenceCutsOffAndSaysNoText) {
  speaker.Silence();
  EXPECT_THAT(sapi4.calls, ElementsAre("reset"));
}

TEST_F(SpeakerTest, MuteIsTurnedOnAndOff) {
  speaker.ToggleMute();
  speaker.SpeakText(u"one");
  speaker.SpeakRaw(u"two");
  speaker.SpeakAndWait(u"three");
  EXPECT_THAT(sapi4.calls, IsEmpty());
  speaker.ToggleMute();
  speaker.SpeakRaw(u"four");
  EXPECT_THAT(sapi4.calls, ElementsAre("reset", "speak u\"four\""));
}

}  // namespace
}  // namespace pointalk
