// Memory that runs out in the middle of an event: the event ends there, and the next one is heard again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>

#include "tests/app/running_program.h"

namespace pointalk {
namespace {

using ::testing::HasSubstr;

constexpr std::string_view kDesktop = R"({
  "windows": [
    {"id": 2, "class": "Button", "title": "One", "rect": [300, 100, 400, 120],
     "menu": {"items": [{"text": "File", "rect": [300, 100, 400, 110]}]}},
    {"id": 3, "class": "SysListView32", "title": "Files", "rect": [300, 200, 400, 220],
     "listView": {"items": [{"text": "Report", "icon": [0, 0, 20, 20]}]}},
    {"id": 4, "class": "MyTextBox", "rect": [300, 300, 400, 320], "edit": {"text": "first line"}},
    {"id": 5, "class": "RichEdit20A", "rect": [300, 400, 400, 420], "richEdit": {"text": "first line"}},
    {"id": 6, "class": "ListBox", "rect": [300, 500, 400, 520], "listBox": {"items": ["zero", "one"], "itemHeight": 5}},
    {"id": 7, "class": "Button", "title": "Sound", "rect": [600, 100, 700, 120]}],
  "objects": [{"rect": [300, 400, 400, 420], "name": "Notes", "value": "first line", "role": "text"}]})";

// Calls that destructors make, which nothing may leave by an exception.
bool MayThrow(std::string_view call) {
  return call != "Panel::SetTimerEnabled" && !call.starts_with("RemoteMemory::Free") &&
         call != "RegistryApi::CloseKey";
}

// Runs the event again and again, each time on a fresh machine, and lets memory run out at one call after the
// other.
void SweepMemory(const std::function<void(RunningProgram&)>& prepare,
                 const std::function<void(RunningProgram&)>& event) {
  int failing = 0;
  for (bool done = false; !done;) {
    SCOPED_TRACE(::testing::Message() << "call " << ++failing);
    RunningProgram program(kDesktop);
    program.Start();
    prepare(program);
    int calls = 0;
    program.before = [&](std::string_view call) {
      if (MayThrow(call) && ++calls == failing) throw std::bad_alloc();
    };
    ASSERT_NO_THROW(event(program));
    program.before = [](std::string_view) {};
    done = calls < failing;
    ASSERT_TRUE(program.TimerEnabled());
    program.Hold(kKeyControl, false);
    program.Hold(kKeyShift, true);
    program.MoveTo({650, 110});
    ASSERT_THAT(program.Heard(), HasSubstr("\"Capitl S o u n d\"")) << "said, and spelled again";
  }
  EXPECT_GT(failing, 1) << "the event makes no call at all";
}

void Nothing(RunningProgram&) {}

TEST(MemoryRunsOut, WhileSomethingIsDescribed) {
  for (const int y : {105, 115, 210, 310, 410, 510}) {
    SCOPED_TRACE(y);
    SweepMemory(Nothing, [y](RunningProgram& program) { program.MoveTo({310, y}); });
  }
}

TEST(MemoryRunsOut, WhileControlIsAnswered) {
  const auto overAButton = [](RunningProgram& program) { program.MoveTo({310, 115}); };
  SweepMemory(overAButton, [](RunningProgram& program) {
    program.Hold(kKeyControl, true);
    program.Tick();
  });
  SweepMemory(overAButton, [](RunningProgram& program) {
    program.Hold(kKeyControl, true);
    program.Hold(kKeyShift, true);
    program.Tick();
  });
}

TEST(MemoryRunsOut, WhileAClickIsSpoken) {
  SweepMemory(
      [](RunningProgram& program) {
        program.mouse.WinHook1_Message(513);
        program.Tick(7);
      },
      [](RunningProgram& program) { program.Tick(); });
}

TEST(MemoryRunsOut, WhileACommandIsCarriedOut) {
  constexpr void (Mouse::*kCommands[])() = {
      &Mouse::mnuFileExit_Click,
      &Mouse::mnuMidiOnOff_Click,
      &Mouse::mnuMidiHorizInstrument_Click,
      &Mouse::cmdMouseInstrumentPreset_Click,
      &Mouse::cmdChangeMouseMelodyFormat_Click,
      &Mouse::mnuMidiVertVolume_Click,
      &Mouse::mnuMidiKeyboardScaling_Click,
      &Mouse::cmdVoiceMike_Click,
      &Mouse::cmdSpeedUpVoice_Click,
      &Mouse::mnuVoiceVolume_Click,
      &Mouse::mnuVoiceClearSapiVersion_Click,
      &Mouse::mnuHelpInstructions_Click,
      &Mouse::mnuHelpAbout_Click,
      &Mouse::mnuProgramMakeAutoStart_Click,
      &Mouse::mnuProgramMakeNotAutoStart_Click,
      &Mouse::mnuTroubleCrashReport_Click,
  };
  for (const auto command : kCommands) {
    SweepMemory(Nothing, [command](RunningProgram& program) { (program.mouse.*command)(); });
  }
}

}  // namespace
}  // namespace pointalk
