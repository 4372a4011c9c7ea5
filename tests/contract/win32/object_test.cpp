// Accessible objects of several kinds, our own among them.
#include <gtest/gtest.h>

#include "tests/contract/win32/patience.h"
#include "tests/contract/win32/win_world.h"

namespace pointalk::contract {
namespace {

class ObjectTest : public ::testing::Test {
 protected:
  // Until there is an answer. Messages are handled meanwhile, as the program does: one that has been sent to
  // us may keep the other program from answering.
  std::optional<AccessibleFacts> Ask(Point place = {150, 150}) {
    world_.MovePointer(place);
    std::optional<AccessibleFacts> facts;
    const auto answered = [&] { return (facts = accessibility_.ObjectAt(place)).has_value(); };
    EXPECT_TRUE(world_.RunUntil(answered, kPatience));
    return facts;
  }

  WinWorld world_{{{{"objects", u"ContractObjects", u"", {100, 100, 300, 300}}},
                   {{"objects", {110, 110, 200, 200}, u"Part"}}}};
  Accessibility& accessibility_ = world_.platform.accessibility;
};

TEST_F(ObjectTest, ARoleMayComeAsAnyNumber) {
  for (const char* type : {"i2", "i4", "r8"}) {
    world_.Tell(std::string("element objects 1 role=43 roletype=") + type);
    const auto facts = Ask();
    ASSERT_TRUE(facts) << type;
    EXPECT_EQ(facts->role, 43) << type;
  }
}

TEST_F(ObjectTest, ARoleThatIsNoNumberIsMissing) {
  for (const char* type : {"bstr", "empty"}) {
    world_.Tell(std::string("element objects 1 role=43 roletype=") + type);
    const auto facts = Ask();
    ASSERT_TRUE(facts) << type;
    EXPECT_EQ(facts->role, std::nullopt) << type;
  }
}

TEST_F(ObjectTest, APropertyThatFailsIsMissingAndTheOthersAreRead) {
  world_.Tell("element objects 1 value=hello fails=name,role,description");
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, std::nullopt);
  EXPECT_EQ(facts->role, std::nullopt);
  EXPECT_EQ(facts->description, std::nullopt);
  EXPECT_EQ(facts->value, u"hello");
}

TEST_F(ObjectTest, APartMayBeAnObjectOfItsOwn) {
  world_.Tell("element objects 1 name=Own object=1");
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Own");
}

TEST_F(ObjectTest, AVeryLongNameIsTakenAsItIs) {
  world_.Tell("element objects 1 name=" + std::string(60'000, 'x'));
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, Text(60'000, u'x'));
}

TEST_F(ObjectTest, ADescriptionHasAnEnd) {
  world_.Tell("element objects 1 description=" + std::string(100'000, 'x'));
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->description, Text(2000, u'x'));
}

TEST_F(ObjectTest, ADescriptionIsNotCutWithinACharacter) {
  const std::string smile = "\\ud83d\\ude00";
  const struct {
    std::size_t before;
    std::string after;
    Text said;
  } kRows[] = {
      {1999, smile + "yy", Text(1999, u'x')},
      {1998, smile + "yy", Text(1998, u'x') + u"\U0001F600"},
      {1998, smile, Text(1998, u'x') + u"\U0001F600"},
      {2000, smile, Text(2000, u'x')},
      {1999, "\\ud83dy", Text(1999, u'x') + u'\xD83D'},
      {2000, "", Text(2000, u'x')},
      {1999, "", Text(1999, u'x')},
  };
  for (const auto& row : kRows) {
    world_.Tell("element objects 1 description=\"" + std::string(row.before, 'x') + row.after + '"');
    const auto facts = Ask();
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->description, row.said) << row.before << row.after;
  }
}

TEST_F(ObjectTest, AValueIsNotCutWhereADescriptionIs) {
  const std::string text(5000, 'x');
  world_.Tell("element objects 1 value=" + text + " name=" + text);
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->value, Text(5000, u'x'));
  EXPECT_EQ(facts->name, Text(5000, u'x'));
}

// It lies with the thread that asks, which has to answer meanwhile.
TEST_F(ObjectTest, OurOwnButtonsAnswerToo) {
  const HWND panel = world_.platform.panel.Window();
  ShowWindow(panel, SW_SHOWNORMAL);
  SetWindowPos(panel, HWND_TOPMOST, 500, 400, 0, 0, SWP_NOSIZE);
  world_.platform.panel.LetMessagesRun();
  RECT button{};
  GetWindowRect(GetWindow(panel, GW_CHILD), &button);
  const Point place = Box{button.left, button.top, button.right, button.bottom}.Middle();
  const auto facts = Ask(place);
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Voice Sam");
  EXPECT_EQ(world_.platform.messages.WindowText(world_.platform.windows.WindowAt(place), 100), u"Voice Sam");
}

}  // namespace
}  // namespace pointalk::contract
