// Mouse messages and the clicks that they name.
#include "input/clicks.h"

#include <gtest/gtest.h>

namespace pointalk {
namespace {

class ClicksTest : public testing::Test {
 protected:
  Clicks clicks;
};

TEST_F(ClicksTest, NameEveryPressOfAButton) {
  constexpr struct {
    std::int32_t message;
    TextView name;
  } kRows[] = {
      {513, u"Click"},        {515, u"DoubleClick"},
      {516, u"Right Click"},  {518, u"Right DoubleClick"},
      {519, u"Middle Click"}, {521, u"Middle DoubleClick"},
  };
  for (const auto& row : kRows) {
    clicks.Forget();
    clicks.Take(row.message);
    EXPECT_EQ(clicks.Pending(), row.name) << row.message;
  }
}

TEST_F(ClicksTest, NameNothingElse) {
  for (const std::int32_t message : {0, 512, 514, 517, 520, 522, 523, 526, -513, 2147483647}) {
    clicks.Take(message);
    EXPECT_EQ(clicks.Pending(), u"") << message;
    EXPECT_FALSE(clicks.ButtonDown()) << message;
  }
}

TEST_F(ClicksTest, KnowWhetherTheLeftButtonIsDown) {
  clicks.Take(513);
  EXPECT_TRUE(clicks.ButtonDown());
  clicks.Take(516);
  EXPECT_TRUE(clicks.ButtonDown());
  clicks.Take(514);
  EXPECT_FALSE(clicks.ButtonDown());
  clicks.Take(515);
  EXPECT_FALSE(clicks.ButtonDown()) << "a double click says nothing of the button";
}

TEST_F(ClicksTest, CountTheSameMessageTwiceInARowOnce) {
  clicks.Take(513);
  clicks.Forget();
  clicks.Take(513);
  EXPECT_EQ(clicks.Pending(), u"");
  clicks.Take(512);
  clicks.Take(513);
  EXPECT_EQ(clicks.Pending(), u"Click") << "a message without a name came between";
}

TEST_F(ClicksTest, SettleAfterMoreThanAFifthOfASecond) {
  clicks.Take(513);
  EXPECT_FALSE(clicks.HasSettled(0)) << "it sets the clock";
  EXPECT_FALSE(clicks.HasSettled(0.2));
  EXPECT_TRUE(clicks.HasSettled(0.21));
  clicks.ForgetSettled();
  EXPECT_EQ(clicks.Pending(), u"");
  clicks.Take(516);
  EXPECT_FALSE(clicks.HasSettled(1)) << "it sets the clock anew";
  EXPECT_TRUE(clicks.HasSettled(0.5)) << "over midnight time goes back";
}

TEST_F(ClicksTest, AClickAfterAForgottenOneTakesOverItsClock) {
  clicks.Take(513);
  EXPECT_FALSE(clicks.HasSettled(1));
  clicks.Forget();
  clicks.Take(516);
  EXPECT_TRUE(clicks.HasSettled(1.5));
}

}  // namespace
}  // namespace pointalk
