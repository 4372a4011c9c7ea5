// Memory in a program that has not answered a message yet, and threads that are known not to answer.
#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "reader/messages.h"
#include "tests/contract/asking.h"
#include "tests/contract/win32/patience.h"
#include "tests/contract/win32/win_world.h"

namespace pointalk::contract {
namespace {

constexpr ULONGLONG kLooksForBlocks = 2'500;  // milliseconds, in which what is looked after is looked after

class LentMemoryTest : public ::testing::Test {
 protected:
  LentMemoryTest() {
    // On a thread of its own.
    world_.Tell("create other class=ContractOther title=Other rect=400,100,600,300 thread=other");
    other_ = windows_.FindTopLevel(u"ContractOther", u"Other");
  }

  RemoteAddress Allocate() { return memory_.Allocate(process_, 16); }

  // By the program's own word: Wine also reads what was given back.
  bool IsThere(RemoteAddress block) {
    return world_.Tell("memory").find("\"base\":" + std::to_string(block) + ',') != std::string::npos;
  }

  // A message that is not answered in time.
  void RunOver() { EXPECT_EQ(messages_.Send(window_, kWmGetTextLength, 0, 0), std::nullopt); }

  WinWorld world_{{{{"slow", u"ContractSlow", u"Slow", {100, 100, 300, 300}}}}};
  ControlMessages& messages_ = world_.platform.messages;
  WindowTree& windows_ = world_.platform.windows;
  RemoteMemory& memory_ = world_.platform.memory;
  WindowHandle window_ = world_.Window("slow");
  WindowHandle other_ = 0;
  ProcessId process_ = windows_.ProcessOf(window_).value();
};

TEST_F(LentMemoryTest, ABlockStaysUntilTheThreadThatHadItAnswers) {
  const RemoteAddress block = Allocate();
  world_.Tell("rule slow WM_GETTEXTLENGTH hold");
  RunOver();
  memory_.FreeOnceAnswered(process_, block, window_);
  world_.RunUntil([] { return false; }, kLooksForBlocks);
  EXPECT_TRUE(IsThere(block));
  world_.Tell("unrule slow");
  EXPECT_TRUE(world_.RunUntil([&] { return !IsThere(block); }, kPatience));
}

TEST_F(LentMemoryTest, ABlockIsGivenBackAtOnceWhereTheWindowAnswers) {
  const RemoteAddress block = Allocate();
  EXPECT_EQ(Answered([&] { return messages_.Send(window_, kWmGetTextLength, 0, 0); }), 4);
  memory_.FreeOnceAnswered(process_, block, window_);
  EXPECT_FALSE(IsThere(block));
  memory_.FreeOnceAnswered(process_, 0, window_);
}

TEST_F(LentMemoryTest, AnotherThreadsAnswerSaysNothing) {
  const RemoteAddress block = Allocate();
  world_.Tell("hang slow");
  RunOver();
  memory_.FreeOnceAnswered(process_, block, window_);
  EXPECT_EQ(Answered([&] { return messages_.Send(other_, kWmGetTextLength, 0, 0); }), 5);
  const RemoteAddress others = Allocate();
  memory_.FreeOnceAnswered(process_, others, other_);
  EXPECT_FALSE(IsThere(others));
  world_.RunUntil([] { return false; }, kLooksForBlocks);
  EXPECT_TRUE(IsThere(block));
}

TEST_F(LentMemoryTest, ABlockThatWasInNoMessageIsGivenBackAtOnce) {
  world_.Tell("hang slow");
  RunOver();
  for (int tick = 0; tick < 3; ++tick) {
    const RemoteAddress block = Allocate();
    EXPECT_EQ(messages_.Send(window_, kWmGetTextLength, 0, block), std::nullopt) << "not sent";
    memory_.FreeOnceAnswered(process_, block, window_);
    EXPECT_FALSE(IsThere(block));
  }
}

TEST_F(LentMemoryTest, AProgramIsGivenNoMoreBlocksThanMayWait) {
  std::vector<RemoteAddress> blocks(31);  // one less than may wait; a message may have two
  for (RemoteAddress& block : blocks) block = Allocate();
  world_.Tell("hang slow");
  RunOver();
  for (const RemoteAddress block : blocks) memory_.FreeOnceAnswered(process_, block, window_);
  EXPECT_EQ(Allocate(), 0U);
  world_.Tell("wake slow");
  RemoteAddress block = 0;
  EXPECT_TRUE(world_.RunUntil([&] { return (block = Allocate()) != 0; }, kPatience));
  memory_.Free(process_, block);
}

class PatienceTest : public LentMemoryTest {
 protected:
  win32::UnresponsiveThreads unresponsiveThreads_;
  HWND slow_ = win32::ToWindow(window_);
};

TEST_F(PatienceTest, ForgetsAThreadThatIsGone) {
  world_.Tell("hang slow");
  unresponsiveThreads_.TimedOut(slow_);
  EXPECT_FALSE(unresponsiveThreads_.MayAsk(slow_));
  world_.Tell("quit");
  const auto forgotten = [&] {
    return unresponsiveThreads_.MayAsk(GetDesktopWindow()) && unresponsiveThreads_.AllAnswer();
  };
  EXPECT_TRUE(world_.RunUntil(forgotten, kPatience));
}

TEST_F(PatienceTest, ForgetsAThreadThatAnsweredAlthoughThePointerNeverComesBack) {
  world_.Tell("hang slow");
  unresponsiveThreads_.TimedOut(slow_);
  world_.Tell("wake slow");
  const auto forgotten = [&] {
    return unresponsiveThreads_.MayAsk(GetDesktopWindow()) && unresponsiveThreads_.AllAnswer();
  };
  EXPECT_TRUE(world_.RunUntil(forgotten, kPatience));
}

TEST_F(PatienceTest, AsksAnotherWindowOfTheThreadWhenTheOneThatWasAskedHasGone) {
  world_.Tell("create sister class=ContractSister title=Sister rect=400,400,600,600");
  EXPECT_TRUE(unresponsiveThreads_.MayAsk(slow_));
  world_.Tell("destroy slow");
  unresponsiveThreads_.TimedOut(slow_);
  const std::shared_ptr<win32::Probe> probe = unresponsiveThreads_.ProbeOf(slow_);
  ASSERT_TRUE(probe);
  EXPECT_TRUE(world_.RunUntil([&] { return probe->IsOver(); }, kPatience));
}

// A thread of our own that hangs, with a window.
class HangingThread {
 public:
  HangingThread() : window_(made_.get_future().get()) {}
  ~HangingThread() {
    mayEnd_.set_value();
    thread_.join();
  }
  HangingThread(const HangingThread&) = delete;
  HangingThread& operator=(const HangingThread&) = delete;

  HWND Window() const { return window_; }

 private:
  void Run() {
    made_.set_value(
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
    mayEnd_.get_future().wait();
  }

  std::promise<HWND> made_;
  std::promise<void> mayEnd_;
  std::thread thread_{&HangingThread::Run, this};
  HWND window_;
};

TEST_F(PatienceTest, KnowsNoMoreThan64Threads) {
  std::vector<std::unique_ptr<HangingThread>> threads(65);
  for (auto& thread : threads) {
    thread = std::make_unique<HangingThread>();
    unresponsiveThreads_.TimedOut(thread->Window());
  }
  EXPECT_TRUE(unresponsiveThreads_.MayAsk(threads.front()->Window()));
  EXPECT_FALSE(unresponsiveThreads_.MayAsk(threads[1]->Window()));
  EXPECT_FALSE(unresponsiveThreads_.MayAsk(threads.back()->Window()));
}

}  // namespace
}  // namespace pointalk::contract
