// Messages to controls of other programs.
#include <gtest/gtest.h>

#include "reader/messages.h"
#include "tests/contract/asking.h"
#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

constexpr Text::value_type kNul = u'\0';

class ControlMessagesContract : public ::testing::Test {
 protected:
  std::uint64_t PointIn(std::string_view window, Point screen) {
    const Point client = windows_.ToClient(world_->Window(window), screen).value();
    return PackedPoint(client.x, client.y);
  }

  // These ask until there is an answer.
  std::optional<std::int32_t> Send(WindowHandle window, std::uint32_t message, std::uint64_t wParam,
                                   std::uint64_t lParam) {
    return Answered([&] { return messages_.Send(window, message, wParam, lParam); });
  }
  std::optional<Text> WindowText(WindowHandle window, std::int32_t capacity) {
    return Answered([&] { return messages_.WindowText(window, capacity); });
  }
  std::optional<Text> EditLine(WindowHandle window, std::int32_t line, std::int32_t capacity) {
    return Answered([&] { return messages_.EditLine(window, line, capacity); });
  }
  std::optional<Text> ListBoxText(WindowHandle window, std::int32_t item, std::int32_t length) {
    return Answered([&] { return messages_.ListBoxText(window, item, length); });
  }

  std::unique_ptr<World> world_ = MakeWorld({{
      {"frame", u"ContractFrame", u"Title \u4E2D end", {100, 100, 700, 500}},
      {"edit", u"Edit", u"first line\r\nthe second\r\n\r\nlast", {110, 110, 300, 250}, "frame"},
      {"list", u"ListBox", u"", {310, 110, 450, 250}, "frame", {u"Apple", u"Caf\u00E9", u"", u"Date"}},
      {.name = "password",
       .className = u"Edit",
       .title = u"marlin",
       .place = {460, 110, 600, 140},
       .parent = "frame",
       .password = true},
  }});
  ControlMessages& messages_ = world_->Seam().messages;
  WindowTree& windows_ = world_->Seam().windows;
};

TEST_F(ControlMessagesContract, AWindowGivesItsTextAsTheCodePageHasIt) {
  EXPECT_EQ(WindowText(world_->Window("frame"), 100), u"Title ? end");
  EXPECT_EQ(Send(world_->Window("frame"), kWmGetTextLength, 0, 0), 11);
}

TEST_F(ControlMessagesContract, ATextIsCutToItsRoom) {
  EXPECT_EQ(WindowText(world_->Window("frame"), 12), u"Title ? end");
  EXPECT_EQ(WindowText(world_->Window("frame"), 6), u"Title");
  EXPECT_EQ(WindowText(world_->Window("frame"), 1), u"");
}

TEST_F(ControlMessagesContract, AnEditGivesItsTextAndItsLines) {
  const WindowHandle edit = world_->Window("edit");
  EXPECT_EQ(WindowText(edit, 100), u"first line\r\nthe second\r\n\r\nlast");
  EXPECT_EQ(EditLine(edit, 0, 100), u"first line");
  EXPECT_EQ(EditLine(edit, 1, 100), u"the second");
  EXPECT_EQ(EditLine(edit, 2, 100), u"");
  EXPECT_EQ(EditLine(edit, 3, 100), u"last");
  EXPECT_EQ(EditLine(edit, 9, 100), u"");
}

TEST_F(ControlMessagesContract, ALineIsCutToItsRoom) {
  EXPECT_EQ(EditLine(world_->Window("edit"), 0, 10), u"first line");
  EXPECT_EQ(EditLine(world_->Window("edit"), 0, 5), u"first");
  EXPECT_EQ(EditLine(world_->Window("edit"), 0, 1), u"f");
  EXPECT_EQ(EditLine(world_->Window("edit"), 0, 0), u"");
}

TEST_F(ControlMessagesContract, AnEditFindsTheCharacterUnderAPoint) {
  const WindowHandle edit = world_->Window("edit");
  const std::uint64_t point = PointIn("edit", world_->CharacterPlace("edit", 16));
  EXPECT_EQ(Send(edit, kEmCharFromPos, 0, point), 65536 + 16);
  EXPECT_EQ(Send(edit, kEmLineFromChar, 16, 0), 1);
  EXPECT_EQ(Send(edit, kEmLineLength, 12, 0), 10);
}

TEST_F(ControlMessagesContract, APasswordFieldGivesNeitherItsTextNorItsLength) {
  const WindowHandle password = world_->Window("password");
  EXPECT_EQ(messages_.Send(password, kWmGetTextLength, 0, 0), std::nullopt);
  EXPECT_EQ(messages_.WindowText(password, 100), std::nullopt);
  EXPECT_EQ(messages_.EditLine(password, 0, 100), std::nullopt);
}

TEST_F(ControlMessagesContract, APasswordFieldTellsWhereItsCharactersStand) {
  const WindowHandle password = world_->Window("password");
  EXPECT_EQ(Send(password, kEmLineFromChar, 3, 0), 0);
  EXPECT_EQ(Send(password, kEmLineLength, 3, 0), 6);
}

TEST_F(ControlMessagesContract, AListBoxFindsAndGivesItsItems) {
  const WindowHandle list = world_->Window("list");
  EXPECT_EQ(Send(list, kLbItemFromPoint, 0, PointIn("list", world_->ItemPlace("list", 1))), 1);
  EXPECT_EQ(Send(list, kLbItemFromPoint, 0, PointIn("list", {380, 245})), 65536 + 3);
  EXPECT_EQ(Send(list, kLbGetTopIndex, 0, 0), 0);
  EXPECT_EQ(Send(list, kLbGetTextLen, 1, 0), 4);
  EXPECT_EQ(Send(list, kLbGetTextLen, 9, 0), -1);
  EXPECT_EQ(ListBoxText(list, 0, 5), u"Apple");
  EXPECT_EQ(ListBoxText(list, 1, 4), u"Caf\u00E9");
}

TEST_F(ControlMessagesContract, AnItemsTextHasTheLengthAskedFor) {
  const WindowHandle list = world_->Window("list");
  EXPECT_EQ(ListBoxText(list, 3, 2), u"Da");
  EXPECT_EQ(ListBoxText(list, 3, 6), Text(u"Date") + kNul + kNul);
  EXPECT_EQ(ListBoxText(list, 9, 2), Text(2, kNul));
  EXPECT_EQ(messages_.ListBoxText(list, 0, 0), std::nullopt);
  EXPECT_EQ(messages_.ListBoxText(list, 0, -1), std::nullopt);
}

TEST_F(ControlMessagesContract, WhatIsNoWindowAnswersNothing) {
  for (const WindowHandle handle : {WindowHandle{0}, world_->NoWindow()}) {
    EXPECT_EQ(messages_.Send(handle, kWmGetTextLength, 0, 0), std::nullopt);
    EXPECT_EQ(messages_.WindowText(handle, 100), std::nullopt);
    EXPECT_EQ(messages_.EditLine(handle, 0, 100), std::nullopt);
    EXPECT_EQ(messages_.ListBoxText(handle, 0, 5), std::nullopt);
  }
}

TEST_F(ControlMessagesContract, AHungProgramAnswersNothing) {
  world_->Hang("frame");
  EXPECT_EQ(messages_.Send(world_->Window("frame"), kWmGetTextLength, 0, 0), std::nullopt);
  EXPECT_EQ(messages_.WindowText(world_->Window("edit"), 100), std::nullopt);
  EXPECT_EQ(messages_.EditLine(world_->Window("edit"), 0, 100), std::nullopt);
  EXPECT_EQ(messages_.ListBoxText(world_->Window("list"), 0, 5), std::nullopt);
}

}  // namespace
}  // namespace pointalk::contract
