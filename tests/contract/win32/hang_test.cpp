// Programs that do not answer, answer late, or die while they are asked.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <memory>
#include <semaphore>
#include <thread>
#include <tuple>

#include "reader/messages.h"
#include "tests/contract/win32/patience.h"
#include "tests/contract/win32/win_world.h"
#include "win32/answer_time.h"

namespace pointalk::contract {
namespace {

constexpr Point kHungPlace{150, 150};
constexpr Point kOtherPlace{450, 150};
constexpr auto kOwnerWait = std::chrono::milliseconds(kPatience);

class HangTest : public ::testing::Test {
 protected:
  HangTest() {
    // On a thread of its own, as if it were another program.
    world_.Tell("create other class=ContractOther title=Other rect=400,100,600,300 thread=other");
    world_.Tell("element other 0 name=Other role=10 rect=400,100,600,300");
    other_ = windows_.FindTopLevel(u"ContractOther", u"Other");
  }

  std::optional<std::int32_t> Length(WindowHandle window) {
    return messages_.Send(window, kWmGetTextLength, 0, 0);
  }

  std::optional<AccessibleFacts> Ask(Point place) {
    world_.MovePointer(place);
    return accessibility_.ObjectAt(place);
  }

  std::shared_ptr<win32::Probe> ProbeOfHung() {
    return world_.platform.unresponsiveThreads.ProbeOf(win32::ToWindow(hung_));
  }

  int Count(const std::string& message) {
    const std::string counts = world_.Tell("counts hung");
    const std::string_view count = RawField(counts, message);
    return count.empty() ? 0 : std::stoi(std::string(count));
  }

  WinWorld world_{{{{"hung", u"ContractHung", u"Hung", {100, 100, 300, 300}}},
                   {{"hung", {100, 100, 300, 300}, u"Hung", kPushButton}}}};
  ControlMessages& messages_ = world_.platform.messages;
  Accessibility& accessibility_ = world_.platform.accessibility;
  WindowTree& windows_ = world_.platform.windows;
  WindowHandle hung_ = world_.Window("hung");
  WindowHandle other_ = 0;
};

// Emptying the clipboard tells its owner, and waits for it.
TEST_F(HangTest, AClipboardWhoseOwnerHangsIsLeftAlone) {
  std::binary_semaphore copied(0), mayAnswer(0);
  std::thread hung([&] {
    const HWND owner =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    OpenClipboard(owner);
    EmptyClipboard();
    CloseClipboard();
    copied.release();
    std::ignore = mayAnswer.try_acquire_for(kOwnerWait);  // then the clipboard's owner goes all the same
    DestroyWindow(owner);
  });
  EXPECT_TRUE(copied.try_acquire_for(kOwnerWait));
  EXPECT_FALSE(world_.platform.system.SetClipboard(u"a report"));
  mayAnswer.release();
  hung.join();
  EXPECT_TRUE(world_.platform.system.SetClipboard(u"a report"));
}

TEST_F(HangTest, AThreadThatHangsIsAskedOnceAndAgainWhenItAnswers) {
  world_.Tell("reset");
  world_.Tell("hang hung");
  EXPECT_EQ(Length(hung_), std::nullopt);
  const auto probe = ProbeOfHung();
  ASSERT_TRUE(probe);
  for (int tick = 0; tick < 30; ++tick) {
    EXPECT_EQ(Length(hung_), std::nullopt);
    EXPECT_EQ(messages_.WindowText(hung_, 100), std::nullopt);
    ASSERT_TRUE(world_.RunUntil([&] { return Length(other_) == 5; }, kPatience));
  }
  EXPECT_EQ(ProbeOfHung(), probe) << "a question that runs over its limit leaves a new one";
  world_.Tell("wake hung");
  int attempts = 0;
  EXPECT_TRUE(world_.RunUntil([&] { return ++attempts, Length(hung_) == 4; }, kPatience));
  EXPECT_LE(Count("WM_GETTEXTLENGTH"), 1 + attempts) << "one while it hung";
  EXPECT_EQ(Count("WM_GETTEXT"), 0);
}

TEST_F(HangTest, AQueryThatHangsIsOutUntilItsProgramAnswers) {
  world_.Tell("hang hung");
  EXPECT_FALSE(Ask(kHungPlace));
  EXPECT_TRUE(accessibility_.QueryPending(hung_));
  EXPECT_FALSE(accessibility_.QueryPending(other_));
  EXPECT_EQ(Length(hung_), std::nullopt);
  for (int tick = 0; tick < 10; ++tick) {
    EXPECT_FALSE(Ask(kHungPlace));
    std::optional<AccessibleFacts> healthy;
    ASSERT_TRUE(world_.RunUntil([&] { return (healthy = Ask(kOtherPlace)).has_value(); }, kPatience));
    EXPECT_EQ(healthy->name, u"Other");
  }
  world_.Tell("wake hung");
  EXPECT_TRUE(world_.RunUntil([&] { return Ask(kHungPlace).has_value(); }, kPatience));
  EXPECT_FALSE(accessibility_.QueryPending(hung_));
}

TEST_F(HangTest, AnObjectThatAnswersLateIsAskedAgainWhenItHasAnswered) {
  world_.Tell("rule hung accName hold");
  EXPECT_FALSE(Ask(kHungPlace));
  EXPECT_TRUE(accessibility_.QueryPending(hung_));
  world_.Tell("unrule hung accName");
  EXPECT_TRUE(world_.RunUntil([&] { return Ask(kHungPlace).has_value(); }, kPatience));
}

TEST_F(HangTest, AnObjectThatAnswersWithinTheLimitIsWaitedForWhileThePointerStays) {
  // Between the two limits. On a busy machine it may take a few attempts to be there.
  world_.Tell("rule hung accName delay 170");
  EXPECT_TRUE(world_.RunUntil([&] { return Ask(kHungPlace).has_value(); }, kPatience));
  EXPECT_FALSE(accessibility_.QueryPending(hung_));
  world_.MovePointer(kOtherPlace);
  EXPECT_TRUE(world_.RunUntil([&] { return !accessibility_.ObjectAt(kHungPlace); }, kPatience));
  EXPECT_TRUE(accessibility_.QueryPending(hung_));
  EXPECT_TRUE(world_.RunUntil([&] { return Ask(kOtherPlace).has_value(); }, kPatience));
  EXPECT_TRUE(world_.RunUntil([&] { return !accessibility_.QueryPending(hung_); }, kPatience));
}

TEST_F(HangTest, FourQueriesMayBeOutAndNoMore) {
  for (int i = 0; i < 5; ++i) {
    const std::string name = "slow" + std::to_string(i);
    const std::string rect = std::to_string(100 + 100 * i) + ",400," + std::to_string(180 + 100 * i) + ",480";
    world_.Tell("create " + name + " class=ContractSlow rect=" + rect + " thread=" + name);
    world_.Tell("element " + name + " 0 name=Slow rect=" + rect);
    world_.Tell("hang " + name);
  }
  for (int i = 0; i < 5; ++i) {
    EXPECT_FALSE(Ask({140 + 100 * i, 440}));
    const WindowHandle window = windows_.WindowAt({140 + 100 * i, 440});
    EXPECT_EQ(accessibility_.QueryPending(window), i < 4) << i;
  }
  EXPECT_FALSE(Ask(kOtherPlace));
  for (int i = 0; i < 5; ++i) world_.Tell("wake slow" + std::to_string(i));
  EXPECT_TRUE(world_.RunUntil([&] { return Ask(kOtherPlace).has_value(); }, kPatience));
}

TEST_F(HangTest, EveryFailureButThatOfAWindowThatTakesNoMessageShowsAThreadThatDoesNotAnswer) {
  for (const DWORD error : {DWORD{ERROR_SUCCESS}, DWORD{ERROR_TIMEOUT}, DWORD{ERROR_NOT_ENOUGH_QUOTA},
                            DWORD{ERROR_NOT_ENOUGH_MEMORY}, DWORD{ERROR_NO_SYSTEM_RESOURCES}})
    EXPECT_TRUE(win32::ShowsUnresponsive(error)) << error;
  for (const DWORD error : {DWORD{ERROR_ACCESS_DENIED}, DWORD{ERROR_INVALID_WINDOW_HANDLE}})
    EXPECT_FALSE(win32::ShowsUnresponsive(error)) << error;
}

// Each answer comes within its limit, but all of them together would take many seconds.
TEST_F(HangTest, AProgramThatIsSlowToAnswerEverythingIsAskedNoMoreForThisDescription) {
  world_.MovePointer(kHungPlace);
  world_.Tell("rule hung WM_GETTEXTLENGTH delay 60");
  const win32::UnresponsiveThreads& threads = world_.platform.unresponsiveThreads;
  // On a busy machine an answer may run over its own limit instead; then it is begun anew.
  const auto refused = [&] {
    int answers = 0;
    while (answers < 200 && Length(hung_)) ++answers;
    return answers < 200 && threads.AllAnswer();
  };
  EXPECT_TRUE(world_.RunUntil(refused, kPatience));
  std::ignore = windows_.WindowAt(kHungPlace);  // the next description
  EXPECT_TRUE(Length(hung_) || !threads.AllAnswer());
}

TEST(AnswerTime, IsOverAfterFiveSecondsOfAnswersAndBeginsAnewWithADescriptionOrAfterAPause) {
  win32::AnswerTime time;
  time.Add(1'000, 3'999);
  time.Add(4'050, 6'050);
  EXPECT_FALSE(time.IsOver(6'050));
  time.Add(6'150, 6'151);
  EXPECT_TRUE(time.IsOver(6'151));
  EXPECT_TRUE(time.IsOver(6'251));
  EXPECT_FALSE(time.IsOver(6'252));
  time.BeginDescription();
  EXPECT_FALSE(time.IsOver(6'151));
  time.Add(6'151, 11'151);
  EXPECT_TRUE(time.IsOver(11'151));
  time.Add(11'252, 11'252);
  EXPECT_FALSE(time.IsOver(11'252));
}

TEST_F(HangTest, AWindowThatHasGoneIsNoThreadThatDoesNotAnswer) {
  world_.Tell("destroy other");
  EXPECT_EQ(Length(other_), std::nullopt);
  EXPECT_TRUE(world_.platform.unresponsiveThreads.AllAnswer());
}

TEST_F(HangTest, AProgramMayDieInAMessage) {
  world_.Tell("rule hung WM_GETTEXT die");
  EXPECT_EQ(messages_.WindowText(hung_, 100), std::nullopt);
  EXPECT_TRUE(world_.RunUntil([&] { return windows_.ClassOf(hung_, 100) == std::nullopt; }, kPatience));
  EXPECT_EQ(messages_.WindowText(hung_, 100), std::nullopt);
}

TEST_F(HangTest, AProgramMayDieInAQuery) {
  world_.Tell("rule hung accName die");
  const auto facts = Ask(kHungPlace);
  EXPECT_TRUE(!facts || !facts->name);
  EXPECT_TRUE(world_.RunUntil([&] { return !accessibility_.QueryPending(hung_); }, kPatience));
}

TEST_F(HangTest, MemoryOfAProgramThatDiedIsGone) {
  const ProcessId process = windows_.ProcessOf(hung_).value();
  RemoteMemory& memory = world_.platform.memory;
  const RemoteAddress block = memory.Allocate(process, 16);
  ASSERT_NE(block, 0U);
  world_.Tell("rule hung WM_GETTEXT die");
  messages_.WindowText(hung_, 100);
  std::array<std::byte, 4> bytes{};
  EXPECT_TRUE(world_.RunUntil([&] { return !memory.Read(process, block, bytes); }, kPatience));
  EXPECT_FALSE(memory.Write(process, block, bytes));
  EXPECT_EQ(memory.Allocate(process, 16), 0U);
  memory.Free(process, block);
}

}  // namespace
}  // namespace pointalk::contract
