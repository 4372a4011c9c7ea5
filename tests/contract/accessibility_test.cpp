// Accessible objects at points of the screen.
#include <gtest/gtest.h>

#include "tests/contract/asking.h"
#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

class AccessibilityContract : public ::testing::Test {
 protected:
  std::optional<AccessibleFacts> Ask(Point place) {
    world_->MovePointer(place);
    return accessibility_.ObjectAt(place);
  }

  std::optional<AccessibleFacts> AskUntilAnswered(Point place) {
    return Answered([&] { return Ask(place); });
  }

  Text RoleOf(const AccessibleFacts& facts) { return accessibility_.RoleText(facts.role.value_or(0), 128); }

  std::unique_ptr<World> world_ = MakeWorld({
      {{"objects", u"ContractObjects", u"", {100, 100, 500, 400}}},
      {{"objects", {110, 110, 200, 150}, u"OK", kPushButton},
       {"objects", {110, 160, 200, 200}, u"Address", kListItem, u"Where to", u"hello"},
       {"objects",
        {110, 210, 200, 250},
        u"\u041F\u0440\u0438\u0432\u0435\u0442 \u4E2D",
        kPushButton,
        u"\u4E2D",
        u"\u4E2D"},
       {"objects", {110, 260, 200, 300}},
       {"objects", {110, 310, 200, 350}, u"Password", kListItem, u"For the sea", u"marlin", true}},
  });
  Accessibility& accessibility_ = world_->Seam().accessibility;
};

TEST_F(AccessibilityContract, AnObjectTellsWhatItHas) {
  const auto facts = AskUntilAnswered({150, 180});
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Address");
  EXPECT_EQ(facts->description, u"Where to");
  EXPECT_EQ(facts->value, u"hello");
  EXPECT_EQ(RoleOf(*facts), kListItem.text);
}

TEST_F(AccessibilityContract, WhatAnObjectDoesNotHaveIsMissing) {
  const auto facts = AskUntilAnswered({150, 130});
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"OK");
  EXPECT_EQ(facts->description, std::nullopt);
  EXPECT_EQ(facts->value, std::nullopt);
  EXPECT_EQ(RoleOf(*facts), kPushButton.text);
}

TEST_F(AccessibilityContract, AnObjectMayHaveNothingAtAll) {
  const auto facts = AskUntilAnswered({150, 280});
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, std::nullopt);
}

TEST_F(AccessibilityContract, AProtectedObjectTellsAllButItsValue) {
  const auto facts = AskUntilAnswered({150, 330});
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Password");
  EXPECT_EQ(facts->description, u"For the sea");
  EXPECT_EQ(facts->value, std::nullopt);
  EXPECT_EQ(RoleOf(*facts), kListItem.text);
}

TEST_F(AccessibilityContract, ItsTextsComeInFullUnicode) {
  const auto facts = AskUntilAnswered({150, 230});
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"\u041F\u0440\u0438\u0432\u0435\u0442 \u4E2D");
  EXPECT_EQ(facts->description, u"\u4E2D");
  EXPECT_EQ(facts->value, u"\u4E2D");
}

TEST_F(AccessibilityContract, ARoleHasATextOfThePlatform) {
  EXPECT_EQ(accessibility_.RoleText(0, 128), u"unknown object");
  EXPECT_EQ(accessibility_.RoleText(-1, 128), u"");
  EXPECT_EQ(accessibility_.RoleText(0, 0), u"");
  EXPECT_EQ(accessibility_.RoleText(0, 7), u"unknown");
}

TEST_F(AccessibilityContract, AHungProgramTellsNothing) {
  world_->Hang("objects");
  EXPECT_FALSE(Ask({150, 130}));
  EXPECT_FALSE(Ask({150, 180}));
}

TEST_F(AccessibilityContract, NoQueryIsOutThatWasAnswered) {
  EXPECT_TRUE(AskUntilAnswered({150, 130}));
  EXPECT_FALSE(accessibility_.QueryPending(world_->Window("objects")));
}

}  // namespace
}  // namespace pointalk::contract
