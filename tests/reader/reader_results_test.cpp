// What readers ask, and what they say of a spot.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/reader/strange_controls.h"

namespace pointalk {
namespace {

using ReaderResults = StrangeControls;

TEST_F(ReaderResults, ControlsAreSaidByTextOrTitleOrKind) {
  controls.ReadAccessibleControl(spot);
  EXPECT_EQ(HeardWords(), "It is eigh strange");
  controls.ReadButton(spot);
  EXPECT_EQ(Heard(), "") << "a button without both is not said";
  spot.texts.maccText = u"Name";
  controls.ReadAccessibleControl(spot);
  EXPECT_EQ(HeardWords(), "Name");
  controls.ReadButton(spot);
  EXPECT_EQ(HeardWords(), "Name button");
  spot.texts.maccName = u"Line up";
  controls.ReadAccessibleControl(spot);
  EXPECT_EQ(HeardWords(), "Line up");
  spot.texts = {};
  messages.answers[kWmGetTextLength] = 5;
  messages.text = u"Title";
  controls.ReadButton(spot);
  EXPECT_EQ(HeardWords(), "Title");
}

TEST_F(ReaderResults, ItemsOfListBoxesAreSaidOnce) {
  messages.answers[kLbItemFromPoint] = 0x10002;
  listBoxes.ReadListBox(spot);
  EXPECT_EQ(Heard(), "") << "outside the items";
  messages.answers[kLbItemFromPoint] = 2;
  messages.answers[kLbGetTextLen] = 3;
  messages.text = Text(u"a\0b", 3);
  listBoxes.ReadListBox(spot);
  EXPECT_EQ(Heard(), "") << "no text but data";
  messages.text = u"abc";
  listBoxes.ReadListBox(spot);
  EXPECT_EQ(Heard(), "") << "the same item again";
  messages.answers[kLbItemFromPoint] = 3;
  listBoxes.ReadListBox(spot);
  EXPECT_EQ(HeardWords(), "abc");
  messages.answers[kLbItemFromPoint] = 0xFFFF;
  messages.text = u"last";
  listBoxes.ReadListBox(spot);
  EXPECT_EQ(HeardWords(), "last") << "the last item that the answer has room for";
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

TEST_F(ReaderResults, ItemsOfAListViewAreSaidOnceThePointerIsInTheList) {
  listViews.ReadListView(spot);
  EXPECT_EQ(Heard(), "") << "blank, and no window above it has a title";
}

TEST_F(ReaderResults, ComingOntoTheDesktopIsToldWithTheNextText) {
  spot.overDesktop = true;
  listViews.ReadListView(spot);
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(speaker.TakeSpeechPrefix(), u"Desktop, ");
  spot.wasOverDesktop = true;
  listViews.ReadListView(spot);
  EXPECT_EQ(HeardWords(), "Desktop");
}

}  // namespace
}  // namespace pointalk
