// Styles, answers and failures of dialogs that no command of the panel brings about.
#include "app/spoken_dialogs.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/app/running_program.h"

namespace pointalk {
namespace {

class AnsweringDialogs final : public Dialogs {
 public:
  int AskByBox(TextView text, TextView title, int style) override {
    shown = Text(title) + u"|" + Text(text);
    shownStyle = style;
    whileOpen();
    return answer;
  }
  Text AskByInput(TextView prompt, TextView title, TextView proposed) override {
    shown = Text(title) + u"|" + Text(prompt) + u"|" + Text(proposed);
    whileOpen();
    return typed;
  }

  int answer = 0;
  Text typed;
  Text shown;
  int shownStyle = -1;
  std::function<void()> whileOpen = [] {};
};

class SpokenDialogsTest : public ::testing::Test {
 protected:
  SpokenDialogsTest() {
    EXPECT_TRUE(platform.sapi5.Create());
    engine.SetVoice(Engine::Object::kSapi5);
    settings.mSapiVersion = 5;
    platform.panel.SetTimerEnabled(true);
  }

  sim::Simulated simulated;
  sim::SimPlatform& platform = simulated.platform;
  InputState input;
  ObjectDescription description;
  VoiceSettings settings;
  Engine engine{platform.sapi5, platform.sapi4};
  Pronouncer pronouncer{platform.input, input, description};
  Speaker speaker{platform.input, platform.panel, input, settings, engine, pronouncer};
  AnsweringDialogs box;
  SpokenDialogs dialogs{box, platform.panel, input, speaker};
};

TEST_F(SpokenDialogsTest, TextIsShownWithItsLineBreaksAndSpokenWithBlanks) {
  box.answer = kAnswerOk;
  EXPECT_EQ(dialogs.AskSpoken(u"One\r\ntwo\r\n\r\nthree\nfour", kBoxOk), kAnswerOk);
  EXPECT_EQ(box.shown, u"Pointalk|One\r\ntwo\r\n\r\nthree\nfour");
  EXPECT_EQ(simulated.transcript(), Said("One two  three\\nfour Hit Enter.") + Said("Thank you."));
}

TEST_F(SpokenDialogsTest, YesNoAndCancelHaveTheirHintAndConfirmations) {
  constexpr struct {
    int answer;
    const char* confirmation;
  } kRows[] = {{kAnswerYes, "Yes."}, {kAnswerNo, "No."}, {kAnswerCancel, "Thank you."}, {0, "Thank you."}};
  std::string expected;
  for (const auto& row : kRows) {
    box.answer = row.answer;
    EXPECT_EQ(dialogs.AskSpoken(u"Well?", kBoxYesNoCancel, u"Title"), row.answer);
    EXPECT_EQ(box.shown, u"Title|Well?");
    EXPECT_EQ(box.shownStyle, 3);
    expected += Said("Well? Y for yes, N for No, Escape for Nevermind.") + Said(row.confirmation);
    EXPECT_EQ(simulated.transcript(), expected);
  }
}

TEST_F(SpokenDialogsTest, OtherStylesAreShownWithoutTheirText) {
  std::string expected;
  for (const int style : {1, 2, 5, -1, 4096}) {
    EXPECT_EQ(dialogs.AskSpoken(u"Well?", style), 0);
    EXPECT_EQ(box.shownStyle, style);
    expected += Said("Thank you.");
    EXPECT_EQ(simulated.transcript(), expected);
  }
}

TEST_F(SpokenDialogsTest, EmptyProposalIsNotSpoken) {
  box.typed = u"12";
  EXPECT_EQ(dialogs.AskSpokenNumber(u"How many?", u"Number", u""), u"12");
  EXPECT_EQ(box.shown, u"Number|How many?|");
  EXPECT_EQ(simulated.transcript(),
            Said("How many? When you're done typing it, please hit enter.") + Said("Thank you."));
}

TEST_F(SpokenDialogsTest, ProposalIsSpokenAndShown) {
  EXPECT_EQ(dialogs.AskSpokenNumber(u"How many?", u"Number", u"7"), u"");
  EXPECT_EQ(box.shown, u"Number|How many?|7");
  EXPECT_EQ(
      simulated.transcript(),
      Said("How many?, default = 7. When you're done typing it, please hit enter.") + Said("Thank you."));
}

TEST_F(SpokenDialogsTest, TimerIsOffMeanwhileAndThenAsBefore) {
  int seen = 0;
  box.whileOpen = [&] {
    ++seen;
    EXPECT_FALSE(platform.panel.TimerEnabled());
  };
  for (const bool before : {true, false}) {
    platform.panel.SetTimerEnabled(before);
    EXPECT_EQ(dialogs.AskSpoken(u"Well?", kBoxOk), 0);
    EXPECT_EQ(platform.panel.TimerEnabled(), before);
    EXPECT_EQ(dialogs.AskSpokenNumber(u"Well?", u"Title", u"1"), u"");
    EXPECT_EQ(platform.panel.TimerEnabled(), before);
  }
  EXPECT_EQ(seen, 4);
}

TEST_F(SpokenDialogsTest, PendingClickIsForgottenEvenWhereNothingIsSpoken) {
  input.mPendingEventText = u"Click";
  box.whileOpen = [&] { EXPECT_EQ(input.mPendingEventText, u""); };
  EXPECT_EQ(dialogs.AskSpoken(u"Well?", 1), 0);
  input.mPendingEventText = u"Click";
  EXPECT_EQ(dialogs.AskSpokenNumber(u"Well?", u"Title", u""), u"");
}

TEST_F(SpokenDialogsTest, SilentEngineLeavesTheBox) {
  engine.SetVoice(Engine::Object::kNone);
  box.answer = kAnswerYes;
  EXPECT_EQ(dialogs.AskSpoken(u"Well?", kBoxYesNo), kAnswerYes);
  EXPECT_EQ(box.shown, u"Pointalk|Well?");
  EXPECT_EQ(simulated.transcript(), "");
}

}  // namespace
}  // namespace pointalk
