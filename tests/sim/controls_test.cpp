// How the controls of the simulated windows answer messages.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/sim/simulated.h"

namespace pointalk::sim {
namespace {

constexpr std::uint32_t kTextLength = 14;
constexpr std::uint32_t kCharacterFromPoint = 0xD7;
constexpr std::uint32_t kLineLength = 0xC1;
constexpr std::uint32_t kLineFromCharacter = 0xC9;
constexpr std::uint32_t kItemFromPoint = 0x1A9;
constexpr std::uint32_t kTopIndex = 0x18E;
constexpr std::uint32_t kItemTextLength = 0x18A;
constexpr std::uint32_t kHitTest = 0x1039;
constexpr std::uint32_t kGetItem = 0x1005;

std::uint64_t Packed(int x, int y) { return static_cast<std::uint32_t>(y * 65536 + x); }

class Controls : public testing::Test {
 protected:
  std::optional<std::int32_t> Ask(WindowHandle window, std::uint32_t message, std::uint64_t wParam = 0,
                                  std::uint64_t lParam = 0) {
    return simulated_.platform.messages.Send(window, message, wParam, lParam);
  }

  RemoteAddress Put(ProcessId process, const std::vector<std::uint32_t>& numbers) {
    ProcessMemory& memory = simulated_.platform.memory.Memory();
    const RemoteAddress block = memory.Allocate(process, numbers.size() * 4);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      EXPECT_TRUE(memory.WriteNumber(process, block + 4 * i, numbers[i]));
    }
    return block;
  }

  std::uint32_t Number(RemoteAddress at, ProcessId process = 1) {
    return simulated_.platform.memory.Memory().ReadNumber(process, at).value_or(0xDEADBEEF);
  }

  // What a list view writes into a buffer of 8 bytes when it is told of a capacity.
  std::string Label(std::uint32_t item, std::uint32_t capacity) {
    const RemoteAddress buffer = Put(1, {0x21212121, 0x21212121});
    const RemoteAddress record =
        Put(1, {1, item, 0, 0, 0, static_cast<std::uint32_t>(buffer), capacity, 0, 0, 0});
    const auto result = Ask(4, kGetItem, 0, record);
    std::string text(8, ' ');
    EXPECT_TRUE(simulated_.platform.memory.Read(1, buffer, std::as_writable_bytes(std::span(text))));
    return std::to_string(result.value_or(-9)) + ":" + text;
  }

  Simulated simulated_{R"({"windows": [
    {"id": 1, "title": "a\u0416b", "class": "Plain"},
    {"id": 2, "listBox": {"items": ["one", "tw\u0000o", "\u20ac\u0416"], "itemHeight": 10, "top": 1}},
    {"id": 3, "listBox": {}},
    {"id": 4, "listView": {"items": [
      {"text": "Desk", "icon": [0, 0, 10, 10], "label": [0, 10, 10, 20]},
      {"text": "Top", "icon": [5, 5, 15, 15], "label": [10, 0, 20, 30]}]}},
    {"id": 5, "edit": {"text": "ab\r\n\r\nlonger\nline", "charWidth": 10, "lineHeight": 20}},
    {"id": 6, "edit": {}},
    {"id": 7, "richEdit": {"text": "ab\r\rxyz", "charWidth": 10, "lineHeight": 20}},
    {"id": 8, "richEdit": {}},
    {"id": 9, "hung": true, "title": "stuck", "listBox": {"items": ["a"]}, "edit": {"text": "a"}},
    {"id": 10, "process": 0, "listView": {"items": []}, "richEdit": {"text": "a"}},
    {"id": 11, "title": "marlin",
     "edit": {"text": "ab\r\nmarlin", "charWidth": 10, "lineHeight": 20, "password": true}},
    {"id": 12, "title": "marlin",
     "richEdit": {"text": "ab\rmarlin", "charWidth": 10, "lineHeight": 20, "password": true}},
    {"id": 13, "title": "marlin", "edit": {"text": "marlin", "password": false}}]})"};
};

TEST_F(Controls, AWindowGivesItsTextAndNothingElse) {
  EXPECT_EQ(Ask(1, 14), 3);
  EXPECT_EQ(simulated_.platform.messages.WindowText(1, 100), u"a?b");
  EXPECT_EQ(simulated_.platform.messages.WindowText(1, 3), u"a?");
  EXPECT_EQ(simulated_.platform.messages.WindowText(1, 0), u"");
  for (const std::uint32_t message :
       {0u, kCharacterFromPoint, kLineLength, kLineFromCharacter, kItemFromPoint, kTopIndex, kItemTextLength,
        kHitTest, kGetItem, 0x1004u, 0x400u}) {
    EXPECT_EQ(Ask(1, message, 0, Packed(3, 3)), 0) << message;
  }
  EXPECT_EQ(simulated_.platform.messages.EditLine(1, 0, 10), u"");
  EXPECT_EQ(simulated_.platform.messages.ListBoxText(1, 0, 2), Text(2, u'\0'));
}

TEST_F(Controls, AHungWindowAndNoWindowGiveNothing) {
  for (const WindowHandle window : {WindowHandle{0}, WindowHandle{9}, WindowHandle{99}}) {
    EXPECT_EQ(Ask(window, 14), std::nullopt);
    EXPECT_EQ(Ask(window, kItemFromPoint, 0, 0), std::nullopt);
    EXPECT_EQ(simulated_.platform.messages.WindowText(window, 10), std::nullopt);
    EXPECT_EQ(simulated_.platform.messages.EditLine(window, 0, 10), std::nullopt);
    EXPECT_EQ(simulated_.platform.messages.ListBoxText(window, 0, 1), std::nullopt);
  }
}

TEST_F(Controls, AListBoxFindsItsItemsByTheirHeight) {
  EXPECT_EQ(Ask(2, kItemFromPoint, 0, Packed(3, 0)), 1);
  EXPECT_EQ(Ask(2, kItemFromPoint, 0, Packed(3, 9)), 1);
  EXPECT_EQ(Ask(2, kItemFromPoint, 0, Packed(3, 10)), 2);
  EXPECT_EQ(Ask(2, kItemFromPoint, 0, Packed(3, 20)), 65538);
  EXPECT_EQ(Ask(2, kItemFromPoint, 0, Packed(3, -1)), 65538);
  EXPECT_EQ(Ask(3, kItemFromPoint, 0, Packed(3, 1)), 65536);
  EXPECT_EQ(Ask(2, kTopIndex), 1);
  EXPECT_EQ(Ask(3, kTopIndex), 0);
}

TEST_F(Controls, AListBoxGivesTheTextsOfItsItems) {
  EXPECT_EQ(Ask(2, kItemTextLength, 0), 3);
  EXPECT_EQ(Ask(2, kItemTextLength, 1), 4);
  EXPECT_EQ(Ask(2, kItemTextLength, 3), -1);
  EXPECT_EQ(Ask(2, kItemTextLength, 0xFFFFFFFF), -1);
  EXPECT_EQ(simulated_.platform.messages.ListBoxText(2, 1, 4), Text(u"tw\0o", 4));
  EXPECT_EQ(simulated_.platform.messages.ListBoxText(2, 2, 2), u"\u20AC?");
  EXPECT_EQ(simulated_.platform.messages.ListBoxText(2, 0, 5), Text(u"one\0\0", 5));
  EXPECT_EQ(simulated_.platform.messages.ListBoxText(2, 7, 2), Text(2, u'\0'));
}

TEST_F(Controls, AListViewTakesTheFirstItemThatHoldsThePoint) {
  const struct {
    std::uint32_t x, y;
    std::int32_t item;
    std::uint32_t flags;
  } rows[] = {{0, 0, 0, 2},  {9, 9, 0, 2},    {5, 12, 0, 4},         {11, 11, 1, 2},
              {16, 3, 1, 4}, {100, 3, -1, 1}, {0xFFFFFFFF, 0, -1, 1}};
  for (const auto& row : rows) {
    const RemoteAddress record = Put(1, {row.x, row.y, 14, 0, 7});
    EXPECT_EQ(Ask(4, kHitTest, 0, record), row.item);
    EXPECT_EQ(Number(record + 8), row.flags);
    EXPECT_EQ(Number(record + 12), static_cast<std::uint32_t>(row.item));
    EXPECT_EQ(Number(record + 16), 0u);
    EXPECT_EQ(Number(record), row.x);
  }
}

TEST_F(Controls, AListViewWritesLabelsUpToTheCapacity) {
  using namespace std::string_literals;
  EXPECT_EQ(Label(0, 8), "1:Desk\0!!!"s);
  EXPECT_EQ(Label(0, 5), "1:Desk\0!!!"s);
  EXPECT_EQ(Label(0, 4), "1:Desk!!!!"s);
  EXPECT_EQ(Label(1, 2), "1:To!!!!!!"s);
  EXPECT_EQ(Label(2, 8), "0:!!!!!!!!"s);
}

TEST_F(Controls, NothingIsDoneWithAddressZero) {
  EXPECT_EQ(Ask(4, kHitTest, 0, 0), 0);
  EXPECT_EQ(Ask(4, kGetItem, 0, 0), 0);
  EXPECT_EQ(Ask(4, kGetItem, 0, Put(1, {1, 0, 0, 0, 0, 0, 255, 0, 0, 0})), 0);
  EXPECT_EQ(Ask(7, kCharacterFromPoint, 0, 0), 0);
  EXPECT_EQ(Ask(8, kCharacterFromPoint, 0, 0), 0);
  EXPECT_EQ(Ask(10, kCharacterFromPoint, 0, Put(1, {0, 0})), 0);
}

TEST_F(Controls, AnEditFindsTheCharacterNearestToAPoint) {
  const struct {
    int x, y;
    std::int32_t line, character;
  } rows[] = {{3, 1, 0, 0},  {10, 19, 0, 1}, {500, 0, 0, 2}, {-30, 0, 0, 0},  {3, -50, 0, 0},
              {3, 20, 1, 4}, {90, 39, 1, 4}, {25, 40, 2, 8}, {3, 4000, 2, 6}, {4000, 4000, 2, 17}};
  for (const auto& row : rows) {
    EXPECT_EQ(Ask(5, kCharacterFromPoint, 0, Packed(row.x, row.y)), row.line * 65536 + row.character)
        << row.x << "," << row.y;
  }
  EXPECT_EQ(Ask(6, kCharacterFromPoint, 0, Packed(3, 3)), -1);
}

TEST_F(Controls, AnEditGivesItsLines) {
  EXPECT_EQ(Ask(5, kLineLength, 0), 2);
  EXPECT_EQ(Ask(5, kLineLength, 3), 2);
  EXPECT_EQ(Ask(5, kLineLength, 4), 0);
  EXPECT_EQ(Ask(5, kLineLength, 6), 11);
  EXPECT_EQ(Ask(5, kLineLength, 17), 11);
  EXPECT_EQ(Ask(5, kLineLength, 18), 0);
  EXPECT_EQ(Ask(5, kLineFromCharacter, 3), 0);
  EXPECT_EQ(Ask(5, kLineFromCharacter, 4), 1);
  EXPECT_EQ(Ask(5, kLineFromCharacter, 500), 2);
  EXPECT_EQ(simulated_.platform.messages.EditLine(5, 0, 1028), u"ab");
  EXPECT_EQ(simulated_.platform.messages.EditLine(5, 1, 1028), u"");
  EXPECT_EQ(simulated_.platform.messages.EditLine(5, 2, 9), u"longer\nli");
  EXPECT_EQ(simulated_.platform.messages.EditLine(5, 2, 0), u"");
  EXPECT_EQ(simulated_.platform.messages.EditLine(5, 3, 9), u"");
}

TEST_F(Controls, ARichEditTakesItsPointFromMemoryAndCountsALineEndOnce) {
  EXPECT_EQ(Ask(7, kCharacterFromPoint, 0, Put(1, {15, 3})), 1);
  EXPECT_EQ(Ask(7, kCharacterFromPoint, 0, Put(1, {90, 3})), 2);
  EXPECT_EQ(Ask(7, kCharacterFromPoint, 0, Put(1, {15, 20})), 3);
  EXPECT_EQ(Ask(7, kCharacterFromPoint, 0, Put(1, {25, 45})), 6);
  EXPECT_EQ(Ask(8, kCharacterFromPoint, 0, Put(1, {0, 0})), -1);
  EXPECT_EQ(Ask(7, kLineLength, 4), 3);
  EXPECT_EQ(Ask(7, kLineFromCharacter, 4), 2);
  EXPECT_EQ(simulated_.platform.messages.EditLine(7, 2, 100), u"xyz");
}

TEST_F(Controls, APasswordFieldKeepsItsText) {
  for (const WindowHandle window : {WindowHandle{11}, WindowHandle{12}}) {
    EXPECT_EQ(Ask(window, kTextLength), std::nullopt) << window;
    EXPECT_EQ(simulated_.platform.messages.WindowText(window, 100), std::nullopt) << window;
    EXPECT_EQ(simulated_.platform.messages.EditLine(window, 0, 100), std::nullopt) << window;
    EXPECT_EQ(simulated_.platform.messages.EditLine(window, 1, 100), std::nullopt) << window;
  }
  EXPECT_EQ(Ask(13, kTextLength), 6);
  EXPECT_EQ(simulated_.platform.messages.WindowText(13, 100), u"marlin");
  EXPECT_EQ(simulated_.platform.messages.EditLine(13, 0, 100), u"marlin");
}

TEST_F(Controls, APasswordFieldAnswersEverythingElse) {
  EXPECT_EQ(Ask(11, kCharacterFromPoint, 0, Packed(15, 20)), 65536 + 5);
  EXPECT_EQ(Ask(11, kLineLength, 4), 6);
  EXPECT_EQ(Ask(11, kLineFromCharacter, 4), 1);
  EXPECT_EQ(Ask(12, kCharacterFromPoint, 0, Put(1, {15, 20})), 4);
  EXPECT_EQ(Ask(12, kLineLength, 3), 6);
  EXPECT_EQ(Ask(12, kLineFromCharacter, 3), 1);
  EXPECT_EQ(simulated_.platform.windows.CaptionOf(11, 100), u"marlin");
}

TEST_F(Controls, AFieldBecomesAPasswordFieldAndAnOpenOneAgain) {
  const auto change = [&](Edit::Reading reading) {
    WindowFields fields;
    fields.id = 13;
    fields.edit = Edit(u"marlin", {}, u"\r\n", reading);
    simulated_.machine.desktop.Change(fields);
  };
  change(Edit::Reading::kPassword);
  EXPECT_EQ(Ask(13, kTextLength), std::nullopt);
  EXPECT_EQ(simulated_.platform.messages.EditLine(13, 0, 100), std::nullopt);
  change(Edit::Reading::kOpen);
  EXPECT_EQ(Ask(13, kTextLength), 6);
  EXPECT_EQ(simulated_.platform.messages.EditLine(13, 0, 100), u"marlin");
}

}  // namespace
}  // namespace pointalk::sim
