#include "input/double_clicks.h"

#include <gtest/gtest.h>

#include <limits>

namespace pointalk {
namespace {

constexpr DoubleClicks::Limits kLimits{500, 4, 6};

// Presses and releases come as they are, one after the other, and each is named by what is reported for it.
class DoubleClicksTest : public testing::Test {
 protected:
  std::int32_t Report(std::int32_t message, Point place, std::uint32_t time) {
    return clicks_.Report(message, place, time, kLimits);
  }

 private:
  DoubleClicks clicks_;
};

TEST_F(DoubleClicksTest, SecondPressOfAButtonIsTheDoubleClick) {
  for (const std::int32_t press : {513, 516, 519}) {
    EXPECT_EQ(Report(press, {10, 10}, 1000), press);
    EXPECT_EQ(Report(press + 1, {10, 10}, 1050), press + 1);
    EXPECT_EQ(Report(press, {10, 10}, 1200), press + 2);
    EXPECT_EQ(Report(press + 1, {10, 10}, 1250), press + 1);
  }
}

TEST_F(DoubleClicksTest, ThirdPressStartsAnew) {
  EXPECT_EQ(Report(513, {10, 10}, 1000), 513);
  EXPECT_EQ(Report(513, {10, 10}, 1100), 515);
  EXPECT_EQ(Report(513, {10, 10}, 1200), 513);
  EXPECT_EQ(Report(513, {10, 10}, 1300), 515);
}

TEST_F(DoubleClicksTest, TheTimeIsCountedFromTheFirstPress) {
  EXPECT_EQ(Report(513, {10, 10}, 1000), 513);
  EXPECT_EQ(Report(514, {10, 10}, 1400), 514);
  EXPECT_EQ(Report(513, {10, 10}, 1500), 515);
  EXPECT_EQ(Report(513, {10, 10}, 2000), 513);
  EXPECT_EQ(Report(513, {10, 10}, 2501), 513);
  EXPECT_EQ(Report(513, {10, 10}, 3001), 515);
}

TEST_F(DoubleClicksTest, TheTimeMayWrapBetweenThePresses) {
  EXPECT_EQ(Report(513, {10, 10}, std::numeric_limits<std::uint32_t>::max() - 100), 513);
  EXPECT_EQ(Report(513, {10, 10}, 100), 515);
}

TEST_F(DoubleClicksTest, ThePlaceMayDifferByHalfTheRectangle) {
  EXPECT_EQ(Report(513, {10, 10}, 1000), 513);
  EXPECT_EQ(Report(513, {12, 7}, 1100), 515);
  EXPECT_EQ(Report(513, {10, 10}, 2000), 513);
  EXPECT_EQ(Report(513, {13, 10}, 2100), 513);
  EXPECT_EQ(Report(513, {13, 14}, 2200), 513);
}

TEST_F(DoubleClicksTest, AnotherButtonBetweenThePressesPartsThem) {
  EXPECT_EQ(Report(513, {10, 10}, 1000), 513);
  EXPECT_EQ(Report(516, {10, 10}, 1100), 516);
  EXPECT_EQ(Report(513, {10, 10}, 1200), 513);
}

TEST_F(DoubleClicksTest, PlacesAtTheEndsOfTheRangeAreApart) {
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(Report(513, {kLeast, kMost}, 1000), 513);
  EXPECT_EQ(Report(513, {kMost, kLeast}, 1100), 513);
}

}  // namespace
}  // namespace pointalk
