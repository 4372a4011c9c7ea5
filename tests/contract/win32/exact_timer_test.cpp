// How the timer of the ticks is asked for, on every kind of system. Wine is one kind and delays no timer, so
// stand-ins take the place of the system's calls.
#include "win32/exact_timer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pointalk::contract {
namespace {

using ::testing::ElementsAre;
using win32::TimerCalls;

const HWND kTimerWindow = reinterpret_cast<HWND>(INT_PTR{16});
constexpr UINT_PTR kTimer = 3;
constexpr UINT kInterval = 30;  // milliseconds

bool newCallWorks = true;
std::vector<std::string> timersAsked;

UINT_PTR WINAPI SetNewTimer(HWND window, UINT_PTR timer, UINT interval, TIMERPROC procedure,
                            ULONG tolerance) {
  EXPECT_TRUE(window == kTimerWindow && timer == kTimer && interval == kInterval && procedure == nullptr);
  timersAsked.push_back(tolerance == TIMERV_NO_COALESCING ? "exact" : "coalesced");
  return newCallWorks ? timer : 0;
}

UINT_PTR WINAPI SetOldTimer(HWND window, UINT_PTR timer, UINT interval, TIMERPROC procedure) {
  EXPECT_TRUE(window == kTimerWindow && timer == kTimer && interval == kInterval && procedure == nullptr);
  timersAsked.emplace_back("plain");
  return timer;
}

class ExactTimerTest : public ::testing::Test {
 protected:
  ExactTimerTest() {
    newCallWorks = true;
    timersAsked.clear();
  }

  static bool Set(const TimerCalls& system) {
    return win32::SetExactTimer(kTimerWindow, kTimer, kInterval, system);
  }
};

TEST_F(ExactTimerTest, ItIsAskedForWithoutCoalescingWhereThatCanBeSaid) {
  EXPECT_TRUE(Set({&SetNewTimer, &SetOldTimer}));
  EXPECT_THAT(timersAsked, ElementsAre("exact"));
}

TEST_F(ExactTimerTest, WhereThatIsRefusedItIsAPlainOne) {
  newCallWorks = false;
  EXPECT_TRUE(Set({&SetNewTimer, &SetOldTimer}));
  EXPECT_THAT(timersAsked, ElementsAre("exact", "plain"));
}

TEST_F(ExactTimerTest, OlderSystemsHavePlainOnesAlone) {
  EXPECT_TRUE(Set({nullptr, &SetOldTimer}));
  EXPECT_THAT(timersAsked, ElementsAre("plain"));
}

TEST_F(ExactTimerTest, ThisSystemHasBoth) {
  const TimerCalls calls = TimerCalls::OfSystem();
  EXPECT_NE(calls.setCoalescable, nullptr);
  EXPECT_NE(calls.set, nullptr);
}

}  // namespace
}  // namespace pointalk::contract
