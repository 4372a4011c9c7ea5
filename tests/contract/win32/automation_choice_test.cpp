// When UI Automation is asked beside an accessible object, and what is made of both answers.
#include <gtest/gtest.h>

#include <utility>

#include "win32/automation_choice.h"

namespace pointalk::win32 {
namespace {

using Maybe = std::optional<Text>;

AccessibleFacts Facts(Maybe name, Maybe value, std::optional<std::int32_t> role = {},
                      Maybe description = {}) {
  return {std::move(name), role, std::move(description), std::move(value)};
}

TEST(AutomationChoiceTest, IsAskedWhereTheObjectSaysTooLittle) {
  const struct {
    std::optional<AccessibleFacts> said;
    Text className;
    bool wants;
  } kRows[] = {
      {std::nullopt, u"Button", true},
      {std::nullopt, u"", true},
      {Facts({}, {}), u"Button", true},
      {Facts(u"", u""), u"Button", true},
      {Facts(u"  ", u" "), u"Button", true},
      {Facts({}, {}, 43, u"described"), u"Button", true},
      {Facts(u"OK", {}), u"Button", false},
      {Facts({}, u"text"), u"Edit", false},
      {Facts(u"OK", u"text"), u"", false},
      {Facts(u"DesktopWindowXamlSource", {}), u"Anything", true},
      {Facts(u"DesktopWindowXamlSource", u"text"), u"Anything", true},
      {Facts(u"DesktopWindowXamlSource 2", {}), u"Anything", false},
      {Facts(u"desktopwindowxamlsource", {}), u"Anything", false},
      {Facts(u"OK", u"text"), u"Windows.UI.Composition.DesktopWindowContentBridge", true},
      {Facts(u"OK", u"text"), u"Windows.UI.Input.InputSite.WindowClass", true},
      {Facts(u"OK", u"text"), u"Microsoft.UI.Content.DesktopChildSiteBridge", true},
      {Facts(u"OK", u"text"), u"XamlExplorerHostIslandWindow", true},
      {Facts(u"OK", u"text"), u"XamlExplorerHostIslandWindow2", false},
      {Facts(u"OK", u"text"), u"Windows.UI.Core.CoreWindow", false},
  };
  for (const auto& row : kRows)
    EXPECT_EQ(WantsAutomation(row.said, row.className), row.wants) << &row - kRows;
}

TEST(AutomationChoiceTest, WhatItDoesNotGiveStaysWhatTheObjectSaid) {
  const AccessibleFacts said = Facts(u"Host", u"v", 10, u"A host");
  const struct {
    std::optional<AccessibleFacts> said;
    AutomationAnswer more;
    AccessibleFacts joined;
  } kRows[] = {
      {said, {Facts({}, {})}, said},
      {said, {Facts(u"", u" ", 0, u"")}, said},
      {said, {Facts(u"File", {})}, Facts(u"File", u"v", 10, u"A host")},
      {said, {Facts({}, u"x")}, Facts(u"Host", u"x", 10, u"A host")},
      {said, {Facts({}, {}, 12)}, Facts(u"Host", u"v", 12, u"A host")},
      {said, {Facts({}, {}, {}, u"Opens it")}, Facts(u"Host", u"v", 10, u"Opens it")},
      {said, {Facts(u"Code", u"x", 42), true}, Facts(u"Code", {}, 42, u"A host")},
      {said, {Facts({}, {}), true}, Facts(u"Host", {}, 10, u"A host")},
      {std::nullopt, {Facts(u"File", u"x", 12, u"d")}, Facts(u"File", u"x", 12, u"d")},
      {std::nullopt, {Facts({}, {})}, AccessibleFacts()},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(&row - kRows);
    const AccessibleFacts joined = Joined(row.said, row.more);
    EXPECT_EQ(joined.name, row.joined.name);
    EXPECT_EQ(joined.value, row.joined.value);
    EXPECT_EQ(joined.role, row.joined.role);
    EXPECT_EQ(joined.description, row.joined.description);
  }
}

}  // namespace
}  // namespace pointalk::win32
