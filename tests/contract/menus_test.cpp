// Menus of windows.
#include <gtest/gtest.h>

#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

class MenusContract : public ::testing::Test {
 protected:
  std::unique_ptr<World> world_ = MakeWorld({{
      {"plain", u"ContractPlain", u"", {100, 100, 300, 200}},
      {"menu",
       u"ContractMenu",
       u"",
       {100, 300, 500, 500},
       "",
       {},
       {{u"&File", {u"&Open", u"Caf\u00E9", u"\u0101\u2192 z"}}, {u"&Edit", {u"Cu&t"}}}},
  }});
  Menus& menus_ = world_->Seam().menus;
  WindowHandle window_ = world_->Window("menu");
};

TEST_F(MenusContract, AWindowMayHaveAMenu) {
  EXPECT_TRUE(menus_.IsMenu(menus_.MenuOf(window_)));
  EXPECT_EQ(menus_.MenuOf(world_->Window("plain")), 0U);
  EXPECT_EQ(menus_.MenuOf(0), 0U);
  EXPECT_FALSE(menus_.IsMenu(0));
  EXPECT_FALSE(menus_.IsMenu(1));
}

TEST_F(MenusContract, AnItemMayOpenASubMenu) {
  const MenuHandle bar = menus_.MenuOf(window_);
  const MenuHandle file = menus_.SubMenuOf(bar, 0);
  EXPECT_TRUE(menus_.IsMenu(file));
  EXPECT_NE(menus_.SubMenuOf(bar, 1), file);
  EXPECT_EQ(menus_.SubMenuOf(bar, 2), 0U);
  EXPECT_EQ(menus_.SubMenuOf(file, 0), 0U);
  EXPECT_EQ(menus_.SubMenuOf(0, 0), 0U);
}

TEST_F(MenusContract, TheItemUnderAPointIsFound) {
  const MenuHandle bar = menus_.MenuOf(window_);
  EXPECT_EQ(menus_.ItemAt(window_, bar, world_->MenuTitlePlace("menu", 0)), 0);
  EXPECT_EQ(menus_.ItemAt(window_, bar, world_->MenuTitlePlace("menu", 1)), 1);
  EXPECT_EQ(menus_.ItemAt(window_, bar, {490, 490}), -1);
  EXPECT_EQ(menus_.ItemAt(window_, menus_.SubMenuOf(bar, 0), world_->MenuTitlePlace("menu", 0)), -1);
}

TEST_F(MenusContract, AnItemsTextIsWrittenOverTheBuffersBeginning) {
  const MenuHandle file = menus_.SubMenuOf(menus_.MenuOf(window_), 0);
  Text buffer(8, u' ');
  EXPECT_EQ(menus_.ItemText(file, 0, buffer, 255), 5);
  EXPECT_EQ(buffer, u"&Open   ");
  buffer = u"12";
  EXPECT_EQ(menus_.ItemText(file, 1, buffer, 255), 4);
  EXPECT_EQ(buffer, u"Caf\u00E9");
  EXPECT_EQ(menus_.ItemText(file, 2, buffer, 255), 4);
  EXPECT_EQ(buffer, u"?? z");
}

TEST_F(MenusContract, AnItemsTextIsCutToItsRoom) {
  const MenuHandle file = menus_.SubMenuOf(menus_.MenuOf(window_), 0);
  Text buffer(8, u' ');
  EXPECT_EQ(menus_.ItemText(file, 0, buffer, 3), 2);
  EXPECT_EQ(buffer, u"&O      ");
}

TEST_F(MenusContract, WhatIsNoItemLeavesTheBuffer) {
  const MenuHandle file = menus_.SubMenuOf(menus_.MenuOf(window_), 0);
  Text buffer = u"kept";
  EXPECT_EQ(menus_.ItemText(file, 3, buffer, 255), 0);
  EXPECT_EQ(menus_.ItemText(file, -1, buffer, 255), 0);
  EXPECT_EQ(menus_.ItemText(0, 0, buffer, 255), 0);
  EXPECT_EQ(buffer, u"kept");
}

}  // namespace
}  // namespace pointalk::contract
