// The deadline by the performance counter.
#include "win32/counter.h"

#include <gtest/gtest.h>

namespace pointalk::contract {
namespace {

TEST(DeadlineTest, IsOverWhenItsTimeHasPassedAndNotBefore) {
  constexpr DWORD kLimit = 40;  // milliseconds
  const std::int64_t before = win32::CounterNow();
  const win32::Deadline deadline(kLimit);
  DWORD left = kLimit;
  while (const DWORD now = deadline.Left()) {
    ASSERT_LE(now, left);
    left = now;
    SleepEx(1, FALSE);
  }
  EXPECT_GE((win32::CounterNow() - before) * 1000 / win32::CounterFrequency(), kLimit);
  EXPECT_EQ(deadline.Left(), 0U);
}

TEST(DeadlineTest, OfNoTimeIsOver) { EXPECT_EQ(win32::Deadline(0).Left(), 0U); }

}  // namespace
}  // namespace pointalk::contract
