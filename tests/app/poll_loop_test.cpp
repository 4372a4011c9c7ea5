// The tick's own timing, and a screen whose size is not known at first.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/app/running_program.h"

namespace pointalk {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;

constexpr std::string_view kPlain =
    R"({"machine": {"files": {"program\\PTK.ini": "MouseMelodyFormat = 0\r\n"}}})";

TEST(PollLoop, SpeaksAClickOnlyAfterMoreThanAFifthOfASecond) {
  RunningProgram program;
  program.Start();
  program.machine.clock = 0;
  program.mouse.WinHook1_Message(513);
  program.mouse.Timer1_Timer();
  program.machine.clock = 200'000;
  program.mouse.Timer1_Timer();
  EXPECT_THAT(program.Heard(), Not(HasSubstr("Click")));
  program.machine.clock = 200'001;
  program.mouse.Timer1_Timer();
  EXPECT_THAT(program.Heard(), HasSubstr("\"Click\""));
}

// Cell 10 from the left and cell 9 from below, by the notes of the two-tone chromatic format.
constexpr std::string_view kMiddleOfTheScreen[] = {"midi 0x14319e", "midi 0x569d"};

TEST(PollLoop, MeasuresAScreenThatHadNoSizeAtFirst) {
  for (const bool width : {false, true}) {
    RunningProgram program(kPlain);
    std::int32_t& side = width ? program.machine.setup.screenWidth : program.machine.setup.screenHeight;
    const std::int32_t whole = side;
    side = 0;
    program.Start();
    side = whole;
    program.MoveTo({520, 390});
    const std::string heard = program.Heard();
    for (const std::string_view note : kMiddleOfTheScreen) EXPECT_THAT(heard, HasSubstr(note)) << width;
  }
}

// The names of the calls that are made meanwhile.
std::vector<std::string> CallsDuring(RunningProgram& program, const std::function<void()>& act) {
  std::vector<std::string> calls;
  program.before = [&](std::string_view call) { calls.emplace_back(call); };
  act();
  program.before = [](std::string_view) {};
  return calls;
}

constexpr std::string_view kOneButton =
    R"({"windows": [{"id": 2, "class": "Button", "rect": [0, 0, 400, 400]}]})";

TEST(PollLoop, PlaysTheTonesBeforeItAsksAnythingOfAnotherProgram) {
  RunningProgram program(kOneButton);
  program.Start();
  const auto calls = CallsDuring(program, [&] { program.MoveTo({200, 200}); });
  const auto asked = std::find(calls.begin(), calls.end(), "WindowTree::WindowAt");
  EXPECT_THAT(std::vector(calls.begin(), asked), Contains("MidiOut::Send"));
  EXPECT_THAT(std::vector(asked, calls.end()),
              AllOf(Contains("Accessibility::ObjectAt"), Not(Contains("MidiOut::Send"))));
}

TEST(PollLoop, AsksOnlyForKeysAndThePointerAtRest) {
  RunningProgram program(kOneButton);
  program.Start();
  program.MoveTo({200, 200});
  program.Tick(20);
  EXPECT_THAT(CallsDuring(program, [&] { program.Tick(); }),
              ElementsAre("Input::KeyDown", "Input::KeyDown", "Input::KeyDown", "Input::PointerPosition",
                          "Input::KeyDown"));
}

TEST(Describing, CutsTheNameOfAClassAfter2046Characters) {
  RunningProgram program(
      R"({"machine": {"files": {"program\\status.txt": "running\r\n"}}, "windows": [{"id": 2, "class": ")" +
      std::string(3000, 'k') + R"(", "rect": [0, 0, 100, 100]}]})");
  program.machine.answers = {kAnswerYes, kAnswerOk};
  program.Start();
  program.MoveTo({50, 50});
  EXPECT_EQ(program.machine.setup.files[u"program\\ClassName.txt"], Text(2046, u'k') + u"\r\n");
}

TEST(RunCycle, NoTickComesBeforeTheStartIsOver) {
  RunningProgram program;
  std::vector<bool> on;
  program.before = [&](std::string_view call) {
    if (call == "Sapi5Voice::Speak" || call == "Files::Write") on.push_back(program.TimerEnabled());
  };
  program.Start();
  EXPECT_THAT(on, SizeIs(::testing::Gt(5u)));
  EXPECT_THAT(on, Each(false));
  EXPECT_TRUE(program.TimerEnabled());
}

TEST(RunCycle, NoTickComesAnyMoreWhileItEnds) {
  RunningProgram program;
  program.Start();
  program.machine.answers.emplace_back(kAnswerYes);
  std::vector<bool> on;
  program.before = [&](std::string_view call) {
    if (call == "Sapi5Voice::Speak") on.push_back(program.TimerEnabled());
  };
  EXPECT_THROW(program.mouse.RequestQuit(), sim::ProgramGone);
  ASSERT_THAT(on, SizeIs(::testing::Gt(2u)));
  EXPECT_FALSE(on.back()) << "while it says goodbye";
}

}  // namespace
}  // namespace pointalk
