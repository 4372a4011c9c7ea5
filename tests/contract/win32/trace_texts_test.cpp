// No text that passes the seam is in a trace, whichever way it goes, unless it was asked for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <tuple>

#include "tests/contract/win32/win_world.h"
#include "tests/support/replaced.h"
#include "win32/traced_platform.h"

namespace pointalk::contract {
namespace {

namespace fs = std::filesystem;

// Part of every text that is read or said, and of nothing else.
constexpr const char* kMarker = "Kelpfin";
const Text kMarked = u"a Kelpfin of theirs";

class MarkedMessages final : public ControlMessages {
 public:
  std::optional<std::int32_t> Send(WindowHandle, std::uint32_t, std::uint64_t, std::uint64_t) override {
    return 0;
  }
  std::optional<Text> WindowText(WindowHandle, std::int32_t) override { return kMarked; }
  std::optional<Text> EditLine(WindowHandle, std::int32_t, std::int32_t) override { return kMarked; }
  std::optional<Text> ListBoxText(WindowHandle, std::int32_t, std::int32_t) override { return kMarked; }
};

class MarkedObjects final : public Accessibility {
 public:
  std::optional<AccessibleFacts> ObjectAt(Point) override {
    return AccessibleFacts{kMarked, 43, kMarked, kMarked};
  }
  bool QueryPending(WindowHandle) override { return false; }
  Text RoleText(std::int32_t, int) override { return kMarked; }
};

class MarkedDialogs final : public Dialogs {
 public:
  int AskByBox(TextView, TextView, int) override { return kAnswerOk; }
  Text AskByInput(TextView, TextView, TextView) override { return kMarked; }
};

class MarkedSystem final : public System {
 public:
  std::optional<SystemVersion> Version() override { return std::nullopt; }
  Text ProgramFolder() override { return kMarked; }
  Text ShortPath(TextView, int) override { return kMarked; }
  bool SetClipboard(TextView) override { return true; }
  bool ShellOpen(TextView, TextView, TextView, TextView, int) override { return true; }
  void EndProgram() override { std::abort(); }
};

class TraceTextsTest : public ::testing::Test {
 protected:
  TraceTextsTest() : file_(fs::temp_directory_path() / "pointalk trace of texts.txt") {}
  ~TraceTextsTest() override { fs::remove(file_); }

  // Lets a marked text pass every way that a traced call offers.
  void Work(const Platform& seam) {
    std::ignore = seam.accessibility.ObjectAt({150, 150});
    seam.accessibility.RoleText(43, 100);
    std::ignore = seam.messages.WindowText(0, 100);
    std::ignore = seam.messages.EditLine(0, 0, 100);
    std::ignore = seam.messages.ListBoxText(0, 0, 100);
    std::ignore = seam.sapi5.Speak(kMarked, std::nullopt);
    std::ignore = seam.sapi4.Find(kMarked);
    std::ignore = seam.sapi4.Speak(kMarked);
    seam.dialogs.AskByBox(kMarked, kMarked, kBoxOk);
    seam.dialogs.AskByInput(kMarked, kMarked, kMarked);
    std::ignore = seam.system.SetClipboard(kMarked);
    std::ignore = seam.system.ShellOpen(kMarked, kMarked, kMarked, kMarked, 1);
    seam.system.ProgramFolder();
    seam.system.ShortPath(kMarked, 100);
    std::ignore = seam.midi.PlayNamedSound(kMarked, 1, 0);
  }

  std::string TraceOfWork(bool withTexts) {
    {
      const Platform base = testing::Replaced(world_.Seam(), messages_, objects_, dialogs_, system_);
      win32::Trace trace({file_.wstring(), withTexts});
      const win32::TracedPlatform traced(
          base, {world_.platform.unresponsiveThreads, world_.platform.voice, world_.platform.midi}, trace);
      const win32::Trace::Event event(&trace, "tick");
      Work(traced.Seam());
    }
    std::ifstream content(file_, std::ios::binary);
    return {std::istreambuf_iterator<char>(content), {}};
  }

  const fs::path file_;
  WinWorld world_{{}};
  MarkedMessages messages_;
  MarkedObjects objects_;
  MarkedDialogs dialogs_;
  MarkedSystem system_;
};

TEST_F(TraceTextsTest, NoTextThatIsReadOrSaidIsInIt) {
  const std::string trace = TraceOfWork(false);
  EXPECT_THAT(trace, ::testing::Not(::testing::HasSubstr(kMarker)));
  for (const char* part :
       {"answered (name 19 characters", "window text (19 characters)", "line of text (19", "list item (19",
        "handed to the voice (19", "input box answered", "clipboard set", "shell has opened"})
    EXPECT_THAT(trace, ::testing::HasSubstr(part));
}

TEST_F(TraceTextsTest, WhatIsReadAndSaidIsInItWhenItIsAskedFor) {
  const std::string trace = TraceOfWork(true);
  for (const char* part :
       {R"(name 19 characters "a Kelpfin)", R"(window text (19 characters "a Kelpfin)",
        R"(line of text (19 characters "a Kelpfin)", R"(list item (19 characters "a Kelpfin)",
        R"(handed to the voice (19 characters "a Kelpfin)"})
    EXPECT_THAT(trace, ::testing::HasSubstr(part));
}

}  // namespace
}  // namespace pointalk::contract
