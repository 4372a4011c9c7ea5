// What a list box is asked, and what its answers sound like.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/reader/strange_controls.h"

namespace pointalk {
namespace {

using ::testing::EndsWith;

class ListBoxReaderTest : public StrangeControls {
 protected:
  ListBoxReaderTest() {
    EXPECT_TRUE(port.Open());
    port.SwitchMidi(true);
    delay.CalibrateDelayLoop();
  }
};

TEST_F(ListBoxReaderTest, AtItsUpperEdgeTheRowBelowIsAskedFor) {
  spot.point = {10, 0};
  listBoxes.ReadListBox(spot);
  ASSERT_FALSE(messages.sent.empty());
  EXPECT_EQ(messages.sent.front().message, kLbItemFromPoint);
  EXPECT_EQ(messages.sent.front().lParam, 0x1000AU);
}

TEST_F(ListBoxReaderTest, OneThatDoesNotAnswerIsAtItsFirstRow) {
  messages.answers[kLbGetTopIndex] = 1;
  listBoxes.ReadListBox(spot);
  EXPECT_THAT(Heard(), EndsWith("midi 0x5ad19c\n"));  // the last note of scrolling down
  messages.answers[kLbGetTopIndex] = std::nullopt;
  listBoxes.ReadListBox(spot);
  EXPECT_THAT(Heard(), EndsWith("midi 0x5ad89c\n"));  // up
}

}  // namespace
}  // namespace pointalk
