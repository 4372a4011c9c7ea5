// The thread of the speech engines: in which order calls reach them, who waits for whom, and what becomes of
// other programs' messages meanwhile.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <objbase.h>

#include <atomic>
#include <chrono>
#include <semaphore>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include "tests/contract/win32/patience.h"
#include "tests/contract/win32/win_world.h"
#include "win32/panel_commands.h"
#include "win32/voice_thread.h"

namespace pointalk::contract {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kLongWait = std::chrono::milliseconds(kPatience);

class VoiceThreadTest : public ::testing::Test {
 protected:
  ~VoiceThreadTest() override { Free(); }

  // The engines are at work on a call until Free.
  void Occupy() {
    voice_.Hand([this](win32::Engines&) { return free_.try_acquire_for(kLongWait); }, false);
    occupied_ = true;
  }
  void Free() {
    if (std::exchange(occupied_, false)) free_.release();
  }

  void HandNumber(int number, bool cutsOff = false) {
    voice_.Hand([this, number](win32::Engines&) { return made_.push_back(number), true; }, cutsOff);
  }

  // What was handed over is made by then.
  std::vector<int> Made() {
    return voice_.Ask([this](win32::Engines&) { return made_; }).value_or(std::vector<int>{-1});
  }

  bool occupied_ = false;
  std::binary_semaphore free_{0};
  std::vector<int> made_;  // the voice's thread's
  WinWorld world_{{}};
  HWND panel_ = world_.platform.panel.Window();
  win32::VoiceThread& voice_ = world_.platform.voice;
};

TEST_F(VoiceThreadTest, CallsAreMadeInTheOrderInWhichTheyAreGiven) {
  Occupy();
  for (int number = 0; number < 5; ++number) HandNumber(number);
  Free();
  EXPECT_EQ(voice_.Ask([this](win32::Engines&) { return made_.size(); }), 5U);
  HandNumber(5, true);
  EXPECT_THAT(Made(), ElementsAre(0, 1, 2, 3, 4, 5));
}

TEST_F(VoiceThreadTest, AllAreMadeOnOneOtherThreadThatIsAnApartment) {
  std::vector<DWORD> threads;
  std::vector<APTTYPE> kinds;
  const auto look = [&](win32::Engines&) {
    APTTYPE kind{};
    APTTYPEQUALIFIER unused{};
    kinds.push_back(SUCCEEDED(CoGetApartmentType(&kind, &unused)) ? kind : APTTYPE_CURRENT);
    threads.push_back(GetCurrentThreadId());
    return true;
  };
  voice_.Hand(look, false);
  EXPECT_EQ(voice_.Ask(look), true);
  ASSERT_EQ(threads.size(), 2U);
  EXPECT_EQ(threads[0], threads[1]);
  EXPECT_NE(threads[0], GetCurrentThreadId());
  EXPECT_THAT(kinds, Each(::testing::AnyOf(APTTYPE_STA, APTTYPE_MAINSTA)));
}

TEST_F(VoiceThreadTest, AWindowOfTheEnginesGetsItsMessages) {
  const auto window = voice_.Ask([](win32::Engines&) {
    return CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
  });
  ASSERT_TRUE(window && *window);
  PostMessageW(*window, WM_CLOSE, 0, 0);
  EXPECT_TRUE(world_.RunUntil([&] { return !IsWindow(*window); }, kPatience));
}

// On a busy machine it may take a few attempts. The call sleeps before it looks: a caller who did not wait
// for it would have gone on by then.
TEST_F(VoiceThreadTest, AnIdleEngineHasTakenACallWhenTheCallerGoesOn) {
  constexpr int kMostAttempts = 100;
  bool taken = false;
  for (int attempt = 0; attempt < kMostAttempts && !taken; ++attempt) {
    std::atomic<bool> wentOn = false;
    voice_.Hand([&](win32::Engines&) { return Sleep(2), taken = !wentOn, true; }, false);
    wentOn = true;
    Made();
  }
  EXPECT_TRUE(taken);
}

TEST_F(VoiceThreadTest, AnEngineThatIsAtWorkIsNotWaitedFor) {
  Occupy();
  HandNumber(1);
  EXPECT_THAT(made_, IsEmpty());  // nothing of it is made before Free
  EXPECT_EQ(voice_.Ask([](win32::Engines&) { return 1; }, 10), std::nullopt);
  Free();
  EXPECT_THAT(Made(), ElementsAre(1));
}

// On a busy machine it may take a few attempts.
TEST_F(VoiceThreadTest, ACallThatAnIdleEngineRefusesIsKnownToBe) {
  const auto refuse = [](win32::Engines&) { return false; };
  EXPECT_TRUE(world_.RunUntil([&] { return !voice_.Hand(refuse, false); }, kPatience));
  Occupy();
  EXPECT_TRUE(voice_.Hand(refuse, false));  // as far as anybody knows
  Free();
}

TEST_F(VoiceThreadTest, ItIsKnownWhetherCallsAreNotOver) {
  Occupy();
  EXPECT_TRUE(voice_.IsBehind());
  HandNumber(1);
  Free();
  EXPECT_TRUE(world_.RunUntil([&] { return !voice_.IsBehind(); }, kPatience));
  EXPECT_THAT(Made(), ElementsAre(1));
}

TEST_F(VoiceThreadTest, ACallThatThrowsHasNoAnswerAndTheNextOneHas) {
  EXPECT_EQ(voice_.Ask([](win32::Engines&) -> int { throw std::runtime_error("no memory"); }), std::nullopt);
  voice_.Hand([](win32::Engines&) -> bool { throw std::runtime_error("no memory"); }, false);
  EXPECT_EQ(voice_.Ask([](win32::Engines&) { return 3; }), 3);
}

// The answer comes only after the message was answered: were it not served, the test would end by the limit.
TEST_F(VoiceThreadTest, SentMessagesAreAnsweredDuringACallThatIsWaitedFor) {
  std::binary_semaphore answered(0);
  std::thread other([&] {
    DWORD_PTR unused = 0;
    if (SendMessageTimeoutW(panel_, WM_NULL, 0, 0, SMTO_NORMAL, kPatience, &unused) != 0) answered.release();
  });
  EXPECT_EQ(voice_.Ask([&](win32::Engines&) { return answered.try_acquire_for(kLongWait); }), true);
  other.join();
}

TEST_F(VoiceThreadTest, TheEndOfTheSessionIsToldDuringACallThatIsWaitedFor) {
  std::thread system([this] { SendMessageW(panel_, WM_ENDSESSION, TRUE, 0); });
  EXPECT_EQ(voice_.Ask([&](win32::Engines&) {
    system.join();
    return world_.sessionEnds;
  }),
            1);
}

TEST_F(VoiceThreadTest, NoEventOfTheFormComesInDuringACallThatIsWaitedFor) {
  world_.platform.panel.SetTimerEnabled(true);
  PostMessageW(panel_, WM_COMMAND, win32::ButtonCommand(0), 0);
  PostMessageW(panel_, WM_LBUTTONUP, 0, 0);
  const auto seen = voice_.Ask([this](win32::Engines&) {
    SendMessageW(panel_, WM_CLOSE, 0, 0);  // answered at once; the event comes later
    for (int look = 0; look < 5; ++look) SendMessageW(panel_, WM_NULL, 0, 0);
    Sleep(100);  // in which the timer fires
    SendMessageW(panel_, WM_NULL, 0, 0);
    return world_.ticks + world_.clicks + world_.unloads + static_cast<int>(world_.commands.size());
  });
  EXPECT_EQ(seen, 0);
  EXPECT_TRUE(world_.RunUntil([this] { return world_.unloads == 1 && world_.ticks > 0; }, kPatience));
  EXPECT_EQ(world_.clicks, 1);
  EXPECT_EQ(world_.commands.size(), 1U);
}

TEST_F(VoiceThreadTest, ItIsKnownWhetherAnAnswerIsWaitedFor) {
  EXPECT_FALSE(voice_.IsWaitedFor());
  EXPECT_EQ(voice_.Ask([this](win32::Engines&) { return voice_.IsWaitedFor(); }), true);
  EXPECT_FALSE(voice_.IsWaitedFor());
}

TEST_F(VoiceThreadTest, WhatHeapsUpBehindAnEngineThatHangsIsDroppedWhenItIsCutOff) {
  Occupy();
  for (int number = 0; number < 64; ++number) HandNumber(number);
  HandNumber(100, true);
  HandNumber(101);
  Free();
  EXPECT_THAT(Made(), ElementsAre(100, 101));
}

TEST_F(VoiceThreadTest, WhatIsCutOffButDoesNotHeapUpIsStillSaid) {
  Occupy();
  for (int number = 0; number < 3; ++number) HandNumber(number, true);
  Free();
  EXPECT_THAT(Made(), ElementsAre(0, 1, 2));
}

TEST_F(VoiceThreadTest, ItEndsAfterTheCallsThatWait) {
  std::vector<int> made;
  {
    win32::VoiceThread voice;
    voice.Hand([](win32::Engines&) { return Sleep(50), true; }, false);
    for (int number = 0; number < 3; ++number)
      voice.Hand([&made, number](win32::Engines&) { return made.push_back(number), true; }, false);
  }
  EXPECT_THAT(made, ElementsAre(0, 1, 2));
}

}  // namespace
}  // namespace pointalk::contract
