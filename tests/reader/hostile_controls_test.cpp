// Controls of other programs that answer what no control should: nothing of it is read, copied or trusted
// beyond what was asked for, and something is said all the same.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/reader/strange_controls.h"

namespace pointalk {
namespace {

constexpr std::int32_t kLeast = -2147483647 - 1;
constexpr std::int32_t kMost = 2147483647;
constexpr std::int32_t kStrange[] = {kLeast, -65537, -65536, -2,    -1,    0,     1,
                                     2,      1028,   1029,   65535, 65536, 65537, kMost};

using HostileControls = StrangeControls;

TEST_F(HostileControls, TitleOfAnyLengthIsFetchedWithinBounds) {
  messages.text = u"Title";
  for (const std::int32_t length : kStrange) {
    SCOPED_TRACE(length);
    messages.answers[kWmGetTextLength] = length;
    messages.capacities.clear();
    EXPECT_EQ(titles.GetWindowTitle(2), length < 1 ? u"" : u"Title");
    for (const std::int32_t capacity : messages.capacities) EXPECT_EQ(capacity, std::min(length, 65536) + 1);
    EXPECT_EQ(messages.capacities.size(), length < 1 ? 0u : 1u);
  }
}

TEST_F(HostileControls, TitleThatIsNotAnsweredIsTheSystemsOwn) {
  messages.answers[kWmGetTextLength] = 5;
  EXPECT_EQ(titles.GetWindowTitle(2), u"");
  sim::WindowFields fields;
  fields.id = 2;
  fields.title = u"Own";
  simulated.machine.desktop.Change(fields);
  EXPECT_EQ(titles.GetWindowTitle(2), u"Own");
  messages.text = u"   ";
  EXPECT_EQ(titles.GetWindowTitle(2), u"Own");
}

TEST_F(HostileControls, ListBoxItemsOfAnyLengthAreFetchedWithinBounds) {
  std::int32_t item = 0;
  for (const std::int32_t length : kStrange) {
    SCOPED_TRACE(length);
    messages.answers[kLbItemFromPoint] = ++item;
    messages.answers[kLbGetTextLen] = length;
    messages.text = u"Item " + Text(1, static_cast<char16_t>(u'a' + item));
    messages.capacities.clear();
    listBoxes.ReadListBox(spot);
    const bool fetched = length >= 1 && length <= 65536;
    EXPECT_EQ(messages.capacities, fetched ? std::vector{length} : std::vector<std::int32_t>{});
    EXPECT_NE(Heard(), "") << "the item, or the kind of thing";
    speaker.SpeakRaw(u" ");  // so that the same may be said again
  }
}

TEST_F(HostileControls, ListBoxHitsOfAnyNumberAskForItemsOf16Bits) {
  messages.answers[kLbGetTextLen] = 3;
  messages.text = u"abc";
  for (const std::int32_t hit : kStrange) {
    SCOPED_TRACE(hit);
    messages.answers[kLbItemFromPoint] = hit;
    messages.items.clear();
    listBoxes.ReadListBox(spot);
    for (const std::int32_t item : messages.items) {
      EXPECT_GE(item, 0);
      EXPECT_LE(item, 0xFFFF);
    }
    if (hit > 0xFFFF) {
      EXPECT_TRUE(messages.items.empty());
    }
  }
}

TEST_F(HostileControls, ListBoxThatDoesNotAnswerSaysItsKindOnce) {
  messages.answers[kLbItemFromPoint] = 4;
  messages.answers[kLbGetTextLen] = std::nullopt;
  listBoxes.ReadListBox(spot);
  EXPECT_EQ(HeardWords(), "It is eigh strange");
  listBoxes.ReadListBox(spot);
  EXPECT_EQ(Heard(), "");
}

TEST_F(HostileControls, TextFieldsOfAnyNumbersAreRead) {
  for (const std::int32_t place : kStrange) {
    for (const std::int32_t length : kStrange) {
      SCOPED_TRACE(::testing::Message() << place << " " << length);
      messages.answers = {{kEmCharFromPos, place}, {kEmLineLength, length}, {kEmLineFromChar, place}};
      spot.texts.maccText = u"accessible\r\ntext";
      for (const Text& line : {Text(), Text(u"short"), Text(3000, u'x')}) {
        messages.text = line;
        messages.capacities.clear();
        edits.ReadEditControl(spot);
        for (const std::int32_t capacity : messages.capacities) {
          EXPECT_TRUE(capacity == 4 || capacity == 1028) << capacity;
          EXPECT_EQ(capacity == 4, length == 1);
        }
        EXPECT_EQ(edits.ReadRichEdit(spot).find(u"\r\r"), Text::npos);
      }
      spot.texts.maccText = Text();
      messages.text = std::nullopt;
      edits.ReadEditControl(spot);
      EXPECT_EQ(edits.ReadRichEdit(spot).find(u"\r\r"), Text::npos);
    }
  }
  EXPECT_EQ(platform.memory.Memory().BlockCount(), 0u);
}

TEST_F(HostileControls, LineThatIsShorterThanAnnouncedIsNotUsed) {
  messages.answers = {{kEmLineLength, 9}};
  messages.text = u"short";
  spot.texts.maccText = u"accessible";
  edits.ReadEditControl(spot);
  EXPECT_EQ(HeardWords(), "accessible");
  messages.text = u"longer than announced";
  words.MarkNewWindow();
  edits.ReadEditControl(spot);
  EXPECT_EQ(HeardWords(), "longer th");
}

TEST_F(HostileControls, MenuTextsOfAnyCountAreCutToWhatIsThere) {
  spot.texts.maccText = Text();
  menus.text = u"Menu";
  for (const std::int32_t count : kStrange) {
    SCOPED_TRACE(count);
    menus.count = count;
    EXPECT_TRUE(menuReader.ReadMenu(spot, false));
    speaker.SpeakRaw(u" ");
  }
  menus.count = 3;
  EXPECT_TRUE(menuReader.ReadMenu(spot, false));
  EXPECT_EQ(HeardWords(), "Men menu");
  for (const std::int32_t item : {-1, -2, kLeast}) {
    menus.item = item;
    EXPECT_FALSE(menuReader.ReadMenu(spot, false));
  }
}

TEST_F(HostileControls, ListViewOfAVanishedWindowIsReadAsEmpty) {
  spot.window = 99;
  listViews.ReadListView(spot);
  EXPECT_EQ(listViews.ListViewItemText(99, 0, 0), Text(255, u' '));
  EXPECT_EQ(listViews.ListViewItemText(2, -1, 0), u"");
  EXPECT_EQ(Heard(), "");
}

}  // namespace
}  // namespace pointalk
