// Mouse messages and the clicks that they name.
#include "app/click_names.h"

#include <gtest/gtest.h>

namespace pointalk {
namespace {

class ClickNamesTest : public testing::Test {
 protected:
  InputState input;
  ClickNames clicks{input};
};

TEST_F(ClickNamesTest, NameEveryPressOfAButton) {
  constexpr struct {
    std::int32_t message;
    TextView name;
  } kRows[] = {
      {513, u"Click"},        {515, u"DoubleClick"},
      {516, u"Right Click"},  {518, u"Right DoubleClick"},
      {519, u"Middle Click"}, {521, u"Middle DoubleClick"},
  };
  for (const auto& row : kRows) {
    input.mPendingEventText.clear();
    clicks.Note(row.message);
    EXPECT_EQ(input.mPendingEventText, row.name) << row.message;
  }
}

TEST_F(ClickNamesTest, NameNothingElse) {
  for (const std::int32_t message : {0, 512, 514, 517, 520, 522, 523, 526, -513, 2147483647}) {
    clicks.Note(message);
    EXPECT_EQ(input.mPendingEventText, u"") << message;
    EXPECT_FALSE(input.mButtonDown) << message;
  }
}

TEST_F(ClickNamesTest, KnowWhetherTheLeftButtonIsDown) {
  clicks.Note(513);
  EXPECT_TRUE(input.mButtonDown);
  clicks.Note(516);
  EXPECT_TRUE(input.mButtonDown);
  clicks.Note(514);
  EXPECT_FALSE(input.mButtonDown);
  clicks.Note(515);
  EXPECT_FALSE(input.mButtonDown) << "a double click says nothing of the button";
}

TEST_F(ClickNamesTest, CountTheSameMessageTwiceInARowOnce) {
  clicks.Note(513);
  input.mPendingEventText.clear();
  clicks.Note(513);
  EXPECT_EQ(input.mPendingEventText, u"");
  clicks.Note(512);
  clicks.Note(513);
  EXPECT_EQ(input.mPendingEventText, u"Click") << "a message without a name came between";
}

}  // namespace
}  // namespace pointalk
