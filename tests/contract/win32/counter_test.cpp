// The deadline by the performance counter.
#include "win32/counter.h"

#include <gtest/gtest.h>

namespace pointalk::contract {
namespace {

TEST(DeadlineTest, IsOverWhenItsTimeHasPassedAndNotBefore) {
  constexpr DWORD kLimit = 40;  // milliseconds
  constexpr std::int64_t kNow = 1'000'000'000'000;
  const std::int64_t second = win32::CounterFrequency();
  const win32::Deadline deadline(kLimit, kNow);
  EXPECT_EQ(deadline.Left(kNow), kLimit);
  EXPECT_EQ(deadline.Left(kNow + second / 100), kLimit - 10);
  EXPECT_EQ(deadline.Left(kNow + second * kLimit / 1000 - 1), 1U);
  EXPECT_EQ(deadline.Left(kNow + second * kLimit / 1000), 0U);
  EXPECT_EQ(deadline.Left(kNow + second * kLimit), 0U);
}

TEST(DeadlineTest, ComesByItself) {
  const win32::Deadline deadline(40);
  while (deadline.Left() != 0) SleepEx(1, FALSE);
  EXPECT_EQ(deadline.Left(), 0U);
}

TEST(DeadlineTest, OfNoTimeIsOver) { EXPECT_EQ(win32::Deadline(0).Left(), 0U); }

}  // namespace
}  // namespace pointalk::contract
