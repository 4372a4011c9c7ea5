// The trace: what it tells of a program that hangs and of a port that refuses, and what becomes of its file.
#include "win32/trace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <mmsystem.h>

#include <chrono>
#include <semaphore>
#include <tuple>

#include "tests/contract/asking.h"
#include "tests/contract/win32/patience.h"
#include "tests/contract/win32/win_world.h"
#include "win32/program_folder.h"
#include "win32/traced_platform.h"
#include "win32/traced_questions.h"

namespace pointalk::contract {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr Point kTracedPlace{150, 150};
constexpr auto kTraceWait = std::chrono::milliseconds(kPatience);

class TraceTest : public ::testing::Test {
 protected:
  ~TraceTest() override { Remove(); }

  static win32::TracedPlatform::Shared Shared(const WinWorld& world) {
    return {world.platform.unresponsiveThreads, world.platform.voice, world.platform.midi};
  }

  void Remove() const {
    DeleteFileW(path_.c_str());
    DeleteFileW((path_ + L".old").c_str());
  }

  static std::string Content(const std::wstring& path) {
    const win32::OwnedHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    std::string content(2 * win32::kLargestTrace, '\0');
    DWORD read = 0;
    ReadFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &read, nullptr);
    content.resize(read);
    return content;
  }

  const std::wstring path_ = win32::ProgramFolderPath() + L"\\contract trace.txt";
};

TEST_F(TraceTest, IsMadeOnlyWhereItIsAskedForWithAFile) {
  EXPECT_FALSE(win32::TraceOptionsOf(L"Pointalk.exe"));
  EXPECT_FALSE(win32::TraceOptionsOf(L"Pointalk.exe --trace"));
  EXPECT_FALSE(win32::TraceOptionsOf(L"Pointalk.exe --trace-texts"));
  EXPECT_FALSE(win32::TraceOptionsOf(L"--trace file"));
  const auto bare = win32::TraceOptionsOf(L"\"C:\\A folder\\Pointalk.exe\" --trace \"a file.txt\"");
  ASSERT_TRUE(bare);
  EXPECT_EQ(bare->file, L"a file.txt");
  EXPECT_FALSE(bare->texts);
  const auto texts = win32::TraceOptionsOf(L"Pointalk.exe --trace-texts --trace file");
  ASSERT_TRUE(texts);
  EXPECT_EQ(texts->file, L"file");
  EXPECT_TRUE(texts->texts);
}

TEST_F(TraceTest, TellsOfLimitsAndRefusalsAndNoText) {
  WinWorld world({{{"hung", u"ContractHung", u"Hung", {100, 100, 300, 300}}},
                  {{"hung", {100, 100, 300, 300}, u"Kelpfin", kPushButton}}});
  {
    win32::Trace trace({path_, false});
    const win32::TracedPlatform traced(world.Seam(), Shared(world), trace);
    const Platform seam = traced.Seam();
    const win32::Trace::Event event(&trace, "tick");
    world.MovePointer(kTracedPlace);
    seam.input.PointerPosition();
    EXPECT_FALSE(seam.midi.Send(0, 0x90));
    EXPECT_TRUE(Answered([&] { return seam.accessibility.ObjectAt(kTracedPlace); }));
    EXPECT_EQ(Answered([&] { return seam.messages.WindowText(world.Window("hung"), 100); }), u"Hung");
    world.Hang("hung");
    EXPECT_FALSE(seam.messages.WindowText(world.Window("hung"), 100));
    EXPECT_FALSE(seam.messages.WindowText(world.Window("hung"), 100));
  }
  const std::string content = Content(path_);
  for (const char* part :
       {" tick: noticed ", "MIDI message without a port", "answered (name 7 characters, role 43",
        "window text (4 characters)", "window text timed out",
        "window text not answered, while some program does not answer", " done "})
    EXPECT_THAT(content, HasSubstr(part));
  for (const char* text : {"Kelpfin", "Hung"}) EXPECT_THAT(content, Not(HasSubstr(text)));
}

TEST_F(TraceTest, ATextThatTheVoiceHasNotTakenIsTold) {
  WinWorld world({});
  std::binary_semaphore free(0);
  {
    win32::Trace trace({path_, false});
    const win32::TracedPlatform traced(world.Seam(), Shared(world), trace);
    Sapi5Voice& voice = traced.Seam().sapi5;
    EXPECT_FALSE(voice.Speak(u"one", kSpeakAsync));  // there is no voice
    ASSERT_TRUE(voice.Create());
    world.platform.voice.Hand([&](win32::Engines&) { return free.try_acquire_for(kTraceWait); }, false);
    EXPECT_TRUE(voice.Speak(u"three", kSpeakAsync));
    free.release();
    EXPECT_TRUE(voice.Speak(u"four", std::nullopt));
    voice.Release();
  }
  EXPECT_THAT(Content(path_), ::testing::ContainsRegex(R"(3 characters, flags 1\).*\n.*voice refused)"));
  EXPECT_THAT(Content(path_), ::testing::ContainsRegex(R"(5 characters, flags 1\).*\n.*not yet taken)"));
  EXPECT_THAT(Content(path_), ::testing::ContainsRegex(R"(4 characters, flags none\).*\n\d+.\d+ taken)"));
}

TEST_F(TraceTest, APortThatIsOpenedAnewIsTold) {
  WinWorld world({});
  {
    win32::Trace trace({path_, false});
    const win32::TracedPlatform traced(world.Seam(), Shared(world), trace);
    MidiOut& midi = traced.Seam().midi;
    const MidiHandle port = midi.OpenMapper().handle;
    const win32::Trace::Event event(&trace, "tick");
    midiOutClose(reinterpret_cast<HMIDIOUT>(static_cast<std::uintptr_t>(port)));
    EXPECT_TRUE(midi.Send(port, 0x3C509D));
    EXPECT_TRUE(midi.Close(port));
  }
  EXPECT_THAT(Content(path_), ::testing::ContainsRegex("tick: MIDI port opened anew \\d+ ms, note sent "));
}

// The object answered, but UI Automation did not.
TEST_F(TraceTest, ALimitThatRanOutIsToldBesideWhatWasAnsweredInTime) {
  class Late final : public Accessibility {
   public:
    explicit Late(WinWorld& world) : world_(world) {}
    std::optional<AccessibleFacts> ObjectAt(Point) override {
      world_.platform.unresponsiveThreads.TimedOut(world_.platform.panel.Window());
      return AccessibleFacts{u"Kelpfin", std::nullopt, std::nullopt, std::nullopt};
    }
    bool QueryPending(WindowHandle) override { return false; }
    Text RoleText(std::int32_t, int) override { return {}; }

   private:
    WinWorld& world_;
  };
  WinWorld world({});
  Late late(world);
  {
    win32::Trace trace({path_, false});
    win32::TracedAccessibility traced(late, world.platform.unresponsiveThreads, trace);
    const win32::Trace::Event event(&trace, "tick");
    EXPECT_TRUE(traced.ObjectAt(kTracedPlace));
  }
  EXPECT_THAT(Content(path_),
              ::testing::ContainsRegex("tick: asked \\d+ ms, timed out \\d+ ms, answered .name 7 "));
}

TEST_F(TraceTest, AMovementWhoseTimeMakesNoSenseIsTakenForOneOfNow) {
  WinWorld world({});
  constexpr DWORD kAnHour = 3'600'000;  // milliseconds
  {
    win32::Trace trace({path_, false});
    const win32::TracedPlatform traced(world.Seam(), Shared(world), trace);
    const win32::Trace::Event event(&trace, "tick");
    for (const DWORD time : {GetTickCount() - kAnHour, GetTickCount() + kAnHour}) {
      INPUT input{};
      input.type = INPUT_MOUSE;
      input.mi = {20, 20, 0, MOUSEEVENTF_MOVE, time, 0};
      SendInput(1, &input, sizeof input);
      std::ignore = traced.Seam().input.PointerPosition();
    }
  }
  EXPECT_THAT(Content(path_), ::testing::ContainsRegex("noticed \\d+ ms, noticed \\d+ ms,"));
  EXPECT_THAT(Content(path_), Not(::testing::ContainsRegex("noticed \\d\\d\\d\\d\\d\\d")));
}

TEST_F(TraceTest, AnEventThatDoesNothingHasNoLine) {
  {
    win32::Trace trace({path_, false});
    { const win32::Trace::Event event(&trace, "empty"); }
    const win32::Trace::Event outer(&trace, "outer");
    trace.Step("before");
    {
      const win32::Trace::Event inner(&trace, "inner");
      trace.Step("within");
    }
    trace.Step("after");
  }
  const std::string content = Content(path_);
  EXPECT_THAT(content, Not(HasSubstr("empty")));
  EXPECT_THAT(content, HasSubstr("inner: within "));
  EXPECT_THAT(content, ::testing::ContainsRegex("outer: before \\d+ ms, after \\d+ ms, done "));
}

TEST_F(TraceTest, AnEventThatEndsTheProgramHasALine) {
  win32::Trace trace({path_, false});
  const win32::Trace::Event event(&trace, "command");
  trace.Step("box answered by 6");
  trace.Finish();
  EXPECT_THAT(Content(path_), HasSubstr("command: box answered by 6 "));
}

TEST_F(TraceTest, AnEventThatDoesNotEndIsTold) {
  win32::Trace trace({path_, false});
  const win32::Trace::Event event(&trace, "tick");
  trace.Step("handed to the voice");
  const ULONGLONG end = GetTickCount64() + 20'000;
  while (Content(path_).find("still at: ") == std::string::npos && GetTickCount64() < end) Sleep(20);
  EXPECT_THAT(Content(path_), HasSubstr("tick: handed to the voice"));
}

TEST_F(TraceTest, AFullFileIsPutAsideAndTheOneBeforeItIsGone) {
  const std::string line(1000, '=');
  for (int run = 0; run < 6; ++run) {
    win32::TraceFile file(path_);
    for (std::size_t written = 0; written < win32::kLargestTrace / 3; written += line.size()) file.Add(line);
  }
  EXPECT_LE(Content(path_).size(), win32::kLargestTrace);
  EXPECT_LE(Content(path_ + L".old").size(), win32::kLargestTrace);
  EXPECT_GT(Content(path_ + L".old").size(), win32::kLargestTrace / 2);
}

TEST_F(TraceTest, AFileThatCannotBeWrittenIsNoTrouble) {
  win32::TraceFile file(path_ + L"\\no folder\\trace.txt");
  file.Add("lost");
  file.Finish();
  EXPECT_EQ(Content(path_), "");
}

}  // namespace
}  // namespace pointalk::contract
