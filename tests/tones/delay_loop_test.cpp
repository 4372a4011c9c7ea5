// The delay loop on a clock that only its own passes move.
#include "tones/delay_loop.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pointalk {
namespace {

class PassClock final : public Clock {
 public:
  PassClock(double start, double secondsOfAPass) : start_(start), secondsOfAPass_(secondsOfAPass) {}

  double SecondsSinceMidnight() override {
    return std::fmod(start_ + secondsOfAPass_ * static_cast<double>(passes), 86400.0);
  }
  double BeginPasses() override {
    ++beginnings;
    return SecondsSinceMidnight();
  }
  double SpinPass() override {
    ++passes;
    return SecondsSinceMidnight();
  }

  std::int64_t passes = 0;
  int beginnings = 0;

 private:
  double start_;
  double secondsOfAPass_;
};

struct Measured {
  double start;
  double secondsOfAPass;
  std::int64_t passesOfASecond;
};

TEST(DelayLoop, LastsToTheWholeSecondNearestToOneFromNow) {
  constexpr Measured kRows[] = {
      {36000.0, 0.25, 5},                          // 36,001 is passed at 36,001.25
      {36000.25, 0.25, 4},                         // the target is 36,001
      {36000.5, 0.25, 7},                          // a half goes to the even second: 36,002
      {36001.5, 0.25, 3},                          // likewise, and down
      {36000.75, 0.25, 6},     {36000.0, 2.0, 1},  // one pass is longer than it all
      {36000.0, 0.0005, 2001},
  };
  for (const Measured& row : kRows) {
    PassClock clock(row.start, row.secondsOfAPass);
    DelayLoop loop(clock);
    loop.CalibrateDelayLoop();
    EXPECT_EQ(clock.passes, row.passesOfASecond) << row.start << " " << row.secondsOfAPass;
    clock.passes = 0;
    loop.BusyWait(1000);
    EXPECT_EQ(clock.passes, row.passesOfASecond);
  }
}

TEST(DelayLoop, RunsOutOverMidnight) {
  PassClock clock(86399.6, 0.0005);
  DelayLoop loop(clock);
  loop.CalibrateDelayLoop();
  EXPECT_EQ(clock.passes, 1'000'000);
  clock.passes = 0;
  loop.BusyWait(1000);
  EXPECT_EQ(clock.passes, 1'000'001);
}

TEST(DelayLoop, TellsTheClockWhenItsPassesBegin) {
  PassClock clock(36000.0, 0.25);
  DelayLoop loop(clock);
  loop.CalibrateDelayLoop();
  clock.beginnings = 0;
  loop.BusyWait(1000);
  EXPECT_EQ(clock.beginnings, 1);
}

TEST(DelayLoop, WaitsWholePassesOnly) {
  PassClock clock(36000.0, 0.0005);
  DelayLoop loop(clock);
  loop.CalibrateDelayLoop();
  constexpr struct {
    std::int32_t milliseconds;
    std::int64_t passes;
  } kRows[] = {{300, 600}, {20, 40}, {1, 2}, {0, 0}, {-5, 0}};
  for (const auto& row : kRows) {
    clock.passes = 0;
    loop.BusyWait(row.milliseconds);
    EXPECT_EQ(clock.passes, row.passes) << row.milliseconds;
  }
}

TEST(DelayLoop, DoesNotWaitBeforeItIsMeasured) {
  PassClock clock(36000.0, 0.0005);
  DelayLoop loop(clock);
  loop.BusyWait(1000);
  EXPECT_EQ(clock.passes, 0);
}

}  // namespace
}  // namespace pointalk
