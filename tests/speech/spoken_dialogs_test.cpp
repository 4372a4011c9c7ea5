// Styles, answers and failures of dialogs that no command of the panel brings about.
#include "speech/spoken_dialogs.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/speech/speaking.h"

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

class SpokenDialogsTest : public ::testing::Test, protected Speaking {
 protected:
  SpokenDialogsTest() { platform.panel.SetTimerEnabled(true); }

  AnsweringDialogs box;
  SpokenDialogs spokenDialogs{box, platform.panel, clicks, speaker};
};

TEST_F(SpokenDialogsTest, TextIsShownWithItsLineBreaksAndSpokenWithBlanks) {
  box.answer = kAnswerOk;
  EXPECT_EQ(spokenDialogs.AskSpoken(u"One\r\ntwo\r\n\r\nthree\nfour", kBoxOk), kAnswerOk);
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
    EXPECT_EQ(spokenDialogs.AskSpoken(u"Well?", kBoxYesNoCancel, u"Title"), row.answer);
    EXPECT_EQ(box.shown, u"Title|Well?");
    EXPECT_EQ(box.shownStyle, 3);
    expected += Said("Well? Y for yes, N for No, Escape for Nevermind.") + Said(row.confirmation);
    EXPECT_EQ(simulated.transcript(), expected);
  }
}

TEST_F(SpokenDialogsTest, OtherStylesAreShownWithoutTheirText) {
  std::string expected;
  for (const int style : {1, 2, 5, -1, 4096}) {
    EXPECT_EQ(spokenDialogs.AskSpoken(u"Well?", style), 0);
    EXPECT_EQ(box.shownStyle, style);
    expected += Said("Thank you.");
    EXPECT_EQ(simulated.transcript(), expected);
  }
}

TEST_F(SpokenDialogsTest, EmptyProposalIsNotSpoken) {
  box.typed = u"12";
  EXPECT_EQ(spokenDialogs.AskSpokenNumber(u"How many?", u"Number", u""), u"12");
  EXPECT_EQ(box.shown, u"Number|How many?|");
  EXPECT_EQ(simulated.transcript(),
            Said("How many? When you're done typing it, please hit enter.") + Said("Thank you."));
}

TEST_F(SpokenDialogsTest, ProposalIsSpokenAndShown) {
  EXPECT_EQ(spokenDialogs.AskSpokenNumber(u"How many?", u"Number", u"7"), u"");
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
    EXPECT_EQ(spokenDialogs.AskSpoken(u"Well?", kBoxOk), 0);
    EXPECT_EQ(platform.panel.TimerEnabled(), before);
    EXPECT_EQ(spokenDialogs.AskSpokenNumber(u"Well?", u"Title", u"1"), u"");
    EXPECT_EQ(platform.panel.TimerEnabled(), before);
  }
  EXPECT_EQ(seen, 4);
}

TEST_F(SpokenDialogsTest, PendingClickIsForgottenEvenWhereNothingIsSpoken) {
  clicks.Take(513);
  box.whileOpen = [&] { EXPECT_EQ(clicks.Pending(), u""); };
  EXPECT_EQ(spokenDialogs.AskSpoken(u"Well?", 1), 0);
  clicks.Take(516);
  EXPECT_EQ(spokenDialogs.AskSpokenNumber(u"Well?", u"Title", u""), u"");
  EXPECT_EQ(clicks.Pending(), u"");
}

TEST_F(SpokenDialogsTest, NoticeHasOneAnswerWhateverTheBoxGives) {
  for (const int answer : {kAnswerOk, 0}) {
    box.answer = answer;
    spokenDialogs.TellSpoken(u"Done.");
    EXPECT_EQ(box.shown, u"Pointalk|Done.");
    EXPECT_EQ(box.shownStyle, kBoxOk);
  }
  EXPECT_EQ(simulated.transcript(),
            Said("Done. Hit Enter.") + Said("Thank you.") + Said("Done. Hit Enter.") + Said("Thank you."));
}

TEST_F(SpokenDialogsTest, SilentEngineLeavesTheBox) {
  platform.sapi5.Release();
  box.answer = kAnswerYes;
  EXPECT_EQ(spokenDialogs.AskSpoken(u"Well?", kBoxYesNo), kAnswerYes);
  EXPECT_EQ(box.shown, u"Pointalk|Well?");
  EXPECT_EQ(simulated.transcript(), "");
}

}  // namespace
}  // namespace pointalk
