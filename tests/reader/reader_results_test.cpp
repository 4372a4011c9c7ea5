// Whether a reader found something to say about the spot.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/reader/strange_controls.h"

namespace pointalk {
namespace {

using ReaderResults = StrangeControls;

TEST_F(ReaderResults, AccessibleControlsAndButtons) {
  EXPECT_FALSE(controls.ReadAccessibleControl(2)) << "nothing but the class";
  description.maccText = u"Name";
  EXPECT_TRUE(controls.ReadAccessibleControl(2));
  description.maccName = u"Line up";
  EXPECT_FALSE(controls.ReadAccessibleControl(2)) << "a scroll bar";
  EXPECT_TRUE(controls.ReadButton(spot));
  description.maccText.clear();
  EXPECT_FALSE(controls.ReadButton(spot));
  messages.answers[kWmGetTextLength] = 5;
  messages.text = u"Title";
  EXPECT_TRUE(controls.ReadButton(spot));
}

TEST_F(ReaderResults, ListBoxes) {
  messages.answers[kLbItemFromPoint] = 0x10002;
  EXPECT_FALSE(listBoxes.ReadListBox(spot)) << "outside the items";
  messages.answers[kLbItemFromPoint] = 2;
  messages.answers[kLbGetTextLen] = 3;
  messages.text = Text(u"a\0b", 3);
  EXPECT_FALSE(listBoxes.ReadListBox(spot)) << "no text but data";
  EXPECT_FALSE(listBoxes.ReadListBox(spot)) << "the same item again";
  messages.answers[kLbItemFromPoint] = 3;
  messages.text = u"abc";
  EXPECT_TRUE(listBoxes.ReadListBox(spot));
  messages.answers[kLbItemFromPoint] = 0xFFFF;
  EXPECT_TRUE(listBoxes.ReadListBox(spot)) << "the last item that the answer has room for";
}

TEST_F(ReaderResults, AListViewIsAskedForItsCountWithoutParameters) {
  listViews.ReadListView(spot);
  ASSERT_FALSE(messages.sent.empty());
  EXPECT_EQ(messages.sent[0].message, kLvmGetItemCount);
  EXPECT_EQ(messages.sent[0].wParam, 0u);
  EXPECT_EQ(messages.sent[0].lParam, 0u);
}

TEST_F(ReaderResults, AListViewIsAskedWithItsRecordsAlone) {
  listViews.ReadListView(spot);
  for (const std::uint32_t message : {kLvmSubItemHitTest, kLvmGetItemA}) {
    const auto sent =
        std::find_if(messages.sent.begin(), messages.sent.end(),
                     [message](const StrangeMessages::Sent& one) { return one.message == message; });
    ASSERT_NE(sent, messages.sent.end());
    EXPECT_EQ(sent->wParam, 0u);
    EXPECT_NE(sent->lParam, 0u);
  }
}

TEST_F(ReaderResults, NoItemHasNoLabel) {
  EXPECT_EQ(listViews.ListViewItemText(2, -1, 0), u"");
  EXPECT_TRUE(messages.sent.empty());
}

TEST_F(ReaderResults, ATitleIsAskedForInItsOwnLength) {
  sim::WindowFields fields;
  fields.id = 2;
  fields.title = u"Own";
  simulated.machine.desktop.Change(fields);
  messages.answers[kWmGetTextLength] = 3;
  EXPECT_EQ(titles.GetWindowTitle(2), u"Own");
  ASSERT_FALSE(messages.sent.empty());
  EXPECT_EQ(messages.sent[0].wParam, 0u);
  EXPECT_EQ(messages.sent[0].lParam, 0u);
}

TEST_F(ReaderResults, AListWithoutAHolder) { EXPECT_FALSE(listViews.ReadListView(spot)); }

TEST_F(ReaderResults, TheDesktopsOwnList) {
  history.mOverDesktop = true;
  EXPECT_FALSE(listViews.ReadListView(spot));
}

}  // namespace
}  // namespace pointalk
