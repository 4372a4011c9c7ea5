// Roles, and the class names that the readers go by.
#include "linux/roles.h"

#include <gtest/gtest.h>

namespace pointalk::linux {
namespace {

constexpr std::uint32_t kRoles = 131;

TEST(RolesTest, RolesHaveTheirClassAndTheirText) {
  const struct {
    std::uint32_t role;
    TextView className;
    TextView text;
  } kRows[] = {
      {kRolePushButton, u"PushButton", u"push button"},
      {7, u"CheckButton", u"check box"},
      {44, u"RadioButton", u"radio button"},
      {62, u"ToggleButton", u"push button"},
      {kRoleComboBox, u"ComboBox", u"combo box"},
      {kRoleText, u"Entry", u"editable text"},
      {79, u"Entry", u"editable text"},
      {kRoleSpinButton, u"Entry", u"spin box"},
      {kRolePassword, u"PasswordEntry", u"editable text"},
      {kRoleListItem, u"ListItem", u"list item"},
      {26, u"Icon", u"graphic"},
      {91, u"TreeItem", u"outline item"},
      {56, u"TableCell", u"cell"},
      {35, u"MenuItem", u"menu item"},
      {129, u"PushButton", u"menu button"},
      {kRoleScrollBar, u"ScrollBar", u"scroll bar"},
      {kRoleFrame, u"Window", u"window"},
      {kRoleHeading, u"Heading", u"heading"},
      {kRoleTerminal, u"Terminal", u"terminal"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(KindOf(row.role).className, row.className) << row.role;
    EXPECT_EQ(SpokenRoleText(KindOf(row.role).spokenRole), row.text) << row.role;
  }
}

TEST(RolesTest, EveryRoleHasAClassAndAText) {
  for (std::uint32_t role = 0; role < kRoles; ++role) {
    EXPECT_FALSE(KindOf(role).className.empty()) << role;
    EXPECT_FALSE(SpokenRoleText(KindOf(role).spokenRole).empty()) << role;
  }
}

TEST(RolesTest, ANumberThatIsNoRoleIsAnObject) {
  for (const std::uint32_t role : {kRoles, 100'000U, 0xFFFFFFFFU}) {
    EXPECT_EQ(KindOf(role).className, u"Object");
    EXPECT_EQ(SpokenRoleText(KindOf(role).spokenRole), u"unknown object");
  }
  for (const std::int32_t role : {-1, 999, 5000}) EXPECT_EQ(SpokenRoleText(role), u"");
}

TEST(RolesTest, OnlyHoldersAreSilentWithoutAText) {
  for (const std::uint32_t role : {0U, 20U, 23U, 39U, 49U, 85U}) EXPECT_TRUE(IsHolder(role)) << role;
  for (const std::uint32_t role : {7U, 11U, 43U, 50U, 51U, 48U}) EXPECT_FALSE(IsHolder(role)) << role;
}

TEST(RolesTest, AMenuHasEntriesAndMenusInIt) {
  for (const std::uint32_t role : {8U, 33U, 35U, 45U, 59U}) EXPECT_TRUE(IsMenuEntry(role)) << role;
  for (const std::uint32_t role : {32U, 34U, 41U, 61U}) EXPECT_FALSE(IsMenuEntry(role)) << role;
}

TEST(RolesTest, OurOwnObjectsHaveClassesToo) {
  EXPECT_EQ(KindOfSpoken(43).className, u"PushButton");
  EXPECT_EQ(KindOfSpoken(12).className, u"MenuItem");
  EXPECT_EQ(KindOfSpoken(10).className, u"");
  EXPECT_EQ(KindOfSpoken(777).className, u"Object");
}

}  // namespace
}  // namespace pointalk::linux
