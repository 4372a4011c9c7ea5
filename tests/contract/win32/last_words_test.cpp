// The wait at the end of the program: what ends it, and which messages are handled meanwhile.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <semaphore>
#include <thread>
#include <vector>

#include "tests/contract/win32/patience.h"
#include "tests/contract/win32/win_world.h"
#include "win32/last_words.h"
#include "win32/panel_commands.h"

namespace pointalk::contract {
namespace {

using ::testing::IsEmpty;

class LastWordsTest : public ::testing::Test {
 protected:
  WinWorld world_{{}};
  HWND panel_ = world_.platform.panel.Window();
};

TEST_F(LastWordsTest, TheyAreOverOnceNothingIsSaid) {
  int asked = 0;
  win32::HearOut(
      panel_, [&](DWORD) { return ++asked < 4; }, kPatience);
  EXPECT_EQ(asked, 4);
}

TEST_F(LastWordsTest, AVoiceThatNeverEndsIsLeft) {
  const ULONGLONG endOfVoice = GetTickCount64() + kPatience;  // or this test could have no end
  bool isSpeaking = false;
  win32::HearOut(
      panel_, [&](DWORD) { return isSpeaking = GetTickCount64() < endOfVoice; }, 100);
  EXPECT_TRUE(isSpeaking);
}

// The program that ends is not kept longer by a question whose answer does not come.
TEST_F(LastWordsTest, AQuestionIsGivenNoMoreTimeThanIsLeft) {
  constexpr DWORD kLimit = 200;  // milliseconds
  std::vector<DWORD> limits;
  win32::HearOut(
      panel_,
      [&](DWORD limit) {
        limits.push_back(limit);
        Sleep(std::min<DWORD>(limit, kLimit / 4));
        return true;
      },
      kLimit);
  EXPECT_EQ(limits.front(), kLimit);
  EXPECT_TRUE(std::is_sorted(limits.rbegin(), limits.rend()));
  EXPECT_GT(limits.back(), 0U);
}

// In a voice that hangs nobody finds out whether it speaks.
TEST_F(LastWordsTest, AVoiceThatHangsIsLeft) {
  std::binary_semaphore free(0);
  Sapi5Voice& voice = world_.platform.sapi5;
  ASSERT_TRUE(voice.Create());
  world_.platform.voice.Hand([&](win32::Engines&) { return free.try_acquire_for(std::chrono::minutes(2)); },
                             false);
  EXPECT_TRUE(world_.platform.sapi5.IsSpeaking(10));
  int asked = 0;
  win32::HearOut(
      panel_, [&](DWORD limit) { return ++asked, world_.platform.sapi5.IsSpeaking(limit); }, 100);
  EXPECT_EQ(asked, 1);
  free.release();
  voice.Release();
}

TEST_F(LastWordsTest, TheEndOfTheSessionIsToldMeanwhile) {
  std::thread system([this] { SendMessageW(panel_, WM_ENDSESSION, TRUE, 0); });
  win32::HearOut(
      panel_, [this](DWORD) { return world_.sessionEnds == 0; }, kPatience);
  EXPECT_EQ(world_.sessionEnds, 1);
  system.join();
}

TEST_F(LastWordsTest, EventsOfTheFormComeTooLate) {
  world_.platform.panel.SetTimerEnabled(true);
  PostMessageW(panel_, WM_COMMAND, win32::ButtonCommand(0), 0);
  PostMessageW(panel_, WM_CLOSE, 0, 0);
  int asked = 0;
  win32::HearOut(
      panel_, [&](DWORD) { return ++asked < 4; }, kPatience);
  world_.platform.panel.SetTimerEnabled(false);
  world_.platform.panel.LetMessagesRun();
  EXPECT_THAT(world_.commands, IsEmpty());
  EXPECT_EQ(world_.unloads, 0);
  EXPECT_EQ(world_.ticks, 0);
}

LRESULT CALLBACK PostAgain(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_APP) PostMessageW(window, WM_APP, 0, 0);
  return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(LastWordsTest, MessagesWithoutEndDoNotKeepTheProgram) {
  const HWND busy =
      CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(busy, nullptr);
  SetWindowLongPtrW(busy, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&PostAgain));
  PostMessageW(busy, WM_APP, 0, 0);
  int asked = 0;
  win32::HearOut(
      panel_, [&](DWORD) { return ++asked < 4; }, kPatience);
  EXPECT_EQ(asked, 4);
  DestroyWindow(busy);
}

// A control may learn by messages to a window of its own that it is done.
TEST_F(LastWordsTest, MessagesToOtherWindowsAreHandled) {
  const HWND other =
      CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(other, nullptr);
  PostMessageW(other, WM_CLOSE, 0, 0);
  win32::HearOut(
      panel_, [other](DWORD) { return IsWindow(other) != FALSE; }, kPatience);
  EXPECT_FALSE(IsWindow(other));
}

}  // namespace
}  // namespace pointalk::contract
