// Events that arrive while a dialog or a spoken confirmation lets messages run.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "app/panel_table.h"
#include "tests/app/running_program.h"
#include "tests/speech/speaking.h"

namespace pointalk {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr std::string_view kTwoButtons = R"({"windows": [
    {"id": 2, "class": "Button", "title": "One", "rect": [300, 100, 400, 120]},
    {"id": 3, "class": "Button", "title": "Two", "rect": [300, 200, 400, 220]}]})";

// A SAPI 4 machine whose engine is in the middle of a word once start-up is over.
constexpr std::string_view kSapi4 = R"({
  "machine": {"sapi5": null, "sapi4": {"positions": [0, 0, 5, 5, 5]}},
  "windows": [{"id": 2, "class": "Button", "title": "One", "rect": [300, 100, 400, 120]}]})";

// Calls back once, the first time that the program makes the call.
void Once(RunningProgram& program, std::string_view call, std::function<void()> callBack) {
  program.before = [&program, call, callBack = std::move(callBack)](std::string_view made) {
    if (made != call) return;
    const auto now = callBack;
    program.before = [](std::string_view) {};
    now();
  };
}

TEST(NestedEvents, ClickWhileABoxIsOpenIsNotSpokenAfterwards) {
  RunningProgram program;
  program.Start();
  Once(program, "Dialogs::AskByBox", [&] { program.mouse.WinHook1_Message(513); });
  program.mouse.mnuHelpAbout_Click();
  program.Heard();
  program.Tick(20);
  EXPECT_THAT(program.Heard(), Not(HasSubstr("Click")));
}

TEST(NestedEvents, ClickDuringStartUpIsSpokenByItsTicks) {
  RunningProgram program;
  Once(program, "Panel::LetMessagesRun", [&] { program.mouse.WinHook1_Message(513); });
  program.Start();
  program.Tick(6);
  EXPECT_THAT(program.Heard(), Not(HasSubstr("Click")));
  program.Tick(1);
  EXPECT_EQ(program.Heard(), Said("Click"));
}

TEST(NestedEvents, TimerIsOffWhileAnyDialogIsOpenAndOnAfterwards) {
  for (const MenuEntry& entry : PanelMenu()) {
    if (!entry.handler) continue;
    SCOPED_TRACE(::testing::PrintToString(Text(entry.name)));
    RunningProgram program;
    program.Start();
    program.before = [&](std::string_view call) {
      const bool dialog = call == "Dialogs::AskByBox" || call == "Dialogs::AskByInput";
      EXPECT_FALSE(dialog && program.TimerEnabled());
    };
    (program.mouse.*entry.handler)();
    EXPECT_TRUE(program.TimerEnabled());
  }
}

TEST(NestedEvents, InstructionsAskedForInsideAnotherDialogLeaveTheTimerOff) {
  RunningProgram program;
  program.Start();
  bool offAfterwards = false;
  Once(program, "Dialogs::AskByBox", [&] {
    program.mouse.mnuHelpInstructions_Click();
    offAfterwards = !program.TimerEnabled();
  });
  program.mouse.mnuHelpAbout_Click();
  EXPECT_TRUE(offAfterwards);
  EXPECT_TRUE(program.TimerEnabled());
  EXPECT_THAT(program.Heard(), HasSubstr("Pointalk Instructions"));
}

TEST(NestedEvents, VoiceMutedWhileABoxIsOpenDoesNotConfirmTheAnswer) {
  RunningProgram program;
  program.Start();
  Once(program, "Dialogs::AskByBox", [&] { program.mouse.mnuVoiceMute_Click(); });
  program.mouse.mnuHelpAbout_Click();
  const std::string heard = program.Heard();
  EXPECT_THAT(heard, HasSubstr("Hit Enter."));
  EXPECT_THAT(heard, Not(HasSubstr("Thank you.")));
}

TEST(NestedEvents, TickWhileSapi4IsWaitedForSpeaks) {
  RunningProgram program(kSapi4);
  program.Start();
  program.mouse.mnuMidiOnOff_Click();
  program.Heard();
  program.machine.pointer = {310, 110};
  int runs = 0;
  program.before = [&](std::string_view call) {
    if (call == "Panel::LetMessagesRun" && ++runs == 2) program.Tick();
  };
  program.mouse.cmdVoiceMike_Click();
  EXPECT_EQ(runs, 2) << "once before the confirmation, once while it is waited for";
  const std::string heard = program.Heard();
  EXPECT_THAT(heard, HasSubstr("sapi4 reset\n"
                               "sapi4 speak \"Voice is now Mike.\"\n"
                               "sapi4 position 0\n"
                               "sapi4 reset\n"
                               "sapi4 speak \"One\"\n"
                               "write"));
}

TEST(NestedEvents, QuittingWhileSapi4IsWaitedForEndsTheProgramThere) {
  RunningProgram program(kSapi4);
  program.Start();
  program.machine.answers.push_back(kAnswerYes);
  int runs = 0;
  program.before = [&](std::string_view call) {
    if (call == "Panel::LetMessagesRun" && ++runs == 2) program.mouse.mnuFileExit_Click();
  };
  EXPECT_THROW(program.mouse.cmdVoiceMike_Click(), sim::ProgramGone);
  EXPECT_EQ(program.machine.setup.files[u"program\\status.txt"], u"stopped\r\n");
}

TEST(NestedEvents, TickAtTheMomentOfRestStopsNothingTwice) {
  RunningProgram program(kTwoButtons);
  program.Start();
  program.MoveTo({600, 600});
  program.Tick(10);
  program.Heard();
  Once(program, "Panel::LetMessagesRun", [&] { program.mouse.Timer1_Timer(); });
  program.Tick();
  EXPECT_EQ(program.Heard(), "midi 0x0\nmidi 0x558d\nmidi 0x0\nmidi 0x142c8e\n");
}

TEST(NestedEvents, CommandThatClosesThePortDuringARestLeavesTheTonesSilent) {
  RunningProgram program(kTwoButtons);
  program.Start();
  program.MoveTo({600, 600});
  program.Tick(10);
  Once(program, "Panel::LetMessagesRun", [&] { program.mouse.mnuMidiOnOff_Click(); });
  program.Tick();
  program.Heard();
  program.MoveTo({100, 100});
  EXPECT_EQ(program.Heard(), "");
  program.MoveTo({310, 110});
  EXPECT_EQ(program.Heard(), Said("One"));
}

TEST(RequestQuit, AsksAsExitDoesAndLeavesTheTonesOn) {
  RunningProgram program(kTwoButtons);
  program.Start();
  program.MoveTo({600, 600});
  program.Heard();
  program.mouse.RequestQuit();
  const std::string heard = program.Heard();
  EXPECT_THAT(heard, ::testing::StartsWith("write \"program\\\\PTK.ini\""));
  EXPECT_THAT(heard, HasSubstr("box 4 \"Pointalk\" \"Do you want to quit from Pointalk?\" -> 7\n"));
  EXPECT_THAT(heard, Not(HasSubstr("midi")));
  program.machine.answers.push_back(kAnswerYes);
  EXPECT_THROW(program.mouse.RequestQuit(), sim::ProgramGone);
}

}  // namespace
}  // namespace pointalk
