// Windows, menus and accessible objects as the platform tells of them.
#include <gtest/gtest.h>

#include "tests/sim/simulated.h"

namespace pointalk::sim {
namespace {

constexpr std::string_view kWindows = R"({"windows": [
    {"id": 1, "class": "Progman", "title": "Program Manager", "rect": [0, 0, 100, 100]},
    {"id": 2, "parent": 1, "class": "View\u0416", "rect": [10, 20, 50, 60], "process": 0},
    {"id": 3, "parent": 1, "class": "Progman", "title": "Program Manager", "rect": [10, 20, 30, 30], "visible": false},
    {"id": 4, "title": "stuck\u00e9", "rect": [60, 60, 70, 70], "process": 12, "hung": true}]})";

TEST(Windows, TheTopmostVisibleOneIsUnderAPoint) {
  Simulated simulated(kWindows);
  SimWindowTree& windows = simulated.platform.windows;
  EXPECT_EQ(windows.WindowAt({0, 0}), 1u);
  EXPECT_EQ(windows.WindowAt({10, 20}), 2u);
  EXPECT_EQ(windows.WindowAt({49, 59}), 2u);
  EXPECT_EQ(windows.WindowAt({50, 60}), 1u);
  EXPECT_EQ(windows.WindowAt({65, 65}), 4u);
  EXPECT_EQ(windows.WindowAt({100, 0}), 0u);
  EXPECT_EQ(windows.WindowAt({-1, 0}), 0u);
}

TEST(Windows, TellTheirClassCaptionProcessAndFamily) {
  Simulated simulated(kWindows);
  SimWindowTree& windows = simulated.platform.windows;
  EXPECT_EQ(windows.ClassOf(1, 100), u"Progman");
  EXPECT_EQ(windows.ClassOf(1, 4), u"Pro");
  EXPECT_EQ(windows.ClassOf(2, 100), u"View?");
  EXPECT_EQ(windows.ClassOf(4, 100), u"");
  EXPECT_EQ(windows.CaptionOf(4, 100), u"stuck\u00e9");
  EXPECT_EQ(windows.CaptionOf(4, 3), u"st");
  EXPECT_EQ(windows.ProcessOf(1), 1u);
  EXPECT_EQ(windows.ProcessOf(2), std::nullopt);
  EXPECT_EQ(windows.ProcessOf(4), 12u);
  EXPECT_EQ(windows.ParentOf(3), 1u);
  EXPECT_EQ(windows.ParentOf(1), 0u);
  EXPECT_EQ(windows.FirstChildOf(1), 2u);
  EXPECT_EQ(windows.FirstChildOf(2), 0u);
  EXPECT_EQ(windows.ToClient(2, {15, 18}), (Point{5, -2}));
}

TEST(Windows, NoWindowHasNothing) {
  Simulated simulated(kWindows);
  SimWindowTree& windows = simulated.platform.windows;
  for (const WindowHandle none : {WindowHandle{0}, WindowHandle{99}}) {
    EXPECT_EQ(windows.ClassOf(none, 100), std::nullopt);
    EXPECT_EQ(windows.CaptionOf(none, 100), u"");
    EXPECT_EQ(windows.ProcessOf(none), std::nullopt);
    EXPECT_EQ(windows.ParentOf(none), 0u);
    EXPECT_EQ(windows.FirstChildOf(none), 0u);
    EXPECT_EQ(windows.ToClient(none, {1, 1}), std::nullopt);
  }
}

TEST(Windows, AreFoundByClassAndTitleWhenTheyHaveNoParent) {
  Simulated simulated(kWindows);
  SimWindowTree& windows = simulated.platform.windows;
  EXPECT_EQ(windows.FindTopLevel(u"Progman", u"Program Manager"), 1u);
  EXPECT_EQ(windows.FindTopLevel(u"", u"stuck\u00e9"), 4u);
  EXPECT_EQ(windows.FindTopLevel(u"Progman", u"Program manager"), 0u);
  EXPECT_EQ(windows.FindTopLevel(u"View?", u""), 0u);
}

TEST(Windows, APointFarAwayHasClientCoordinatesToo) {
  Simulated simulated(R"({"windows": [{"id": 1, "rect": [-2147483648, 0, 2147483647, 10]}]})");
  EXPECT_EQ(simulated.platform.windows.ToClient(1, {2147483647, 5}), (Point{-1, 5}));
}

constexpr std::string_view kMenus = R"({"windows": [
    {"id": 1, "hung": true, "menu": {"items": [
      {"text": "&File", "rect": [0, 0, 10, 10], "items": [{"text": "\u0416pen", "rect": [0, 10, 10, 20]}, {}]},
      {"text": "&Help", "rect": [0, 0, 20, 10]},
      {"items": []}]}},
    {"id": 2}]})";

TEST(Menus, AnItemWithItemsOpensASubmenu) {
  Simulated simulated(kMenus);
  SimMenus& menus = simulated.platform.menus;
  const MenuHandle bar = menus.MenuOf(1);
  EXPECT_TRUE(menus.IsMenu(bar));
  EXPECT_EQ(menus.MenuOf(2), 0u);
  EXPECT_EQ(menus.MenuOf(0), 0u);
  EXPECT_FALSE(menus.IsMenu(0));
  EXPECT_TRUE(menus.IsMenu(menus.SubMenuOf(bar, 0)));
  EXPECT_EQ(menus.SubMenuOf(bar, 1), 0u);
  EXPECT_TRUE(menus.IsMenu(menus.SubMenuOf(bar, 2)));
  EXPECT_EQ(menus.SubMenuOf(bar, 3), 0u);
  EXPECT_EQ(menus.SubMenuOf(bar, -1), 0u);
  EXPECT_EQ(menus.SubMenuOf(0, 0), 0u);
}

TEST(Menus, TheFirstItemThatHoldsThePointIsThere) {
  Simulated simulated(kMenus);
  SimMenus& menus = simulated.platform.menus;
  const MenuHandle bar = menus.MenuOf(1);
  EXPECT_EQ(menus.ItemAt(1, bar, {5, 5}), 0);
  EXPECT_EQ(menus.ItemAt(1, bar, {15, 5}), 1);
  EXPECT_EQ(menus.ItemAt(1, bar, {5, 15}), -1);
  EXPECT_EQ(menus.ItemAt(1, menus.SubMenuOf(bar, 0), {5, 15}), 0);
  EXPECT_EQ(menus.ItemAt(1, 0, {5, 5}), -1);
}

TEST(Menus, TextsAreWrittenOverTheBeginningOfABuffer) {
  Simulated simulated(kMenus);
  SimMenus& menus = simulated.platform.menus;
  const MenuHandle bar = menus.MenuOf(1);
  Text buffer = u"12345678";
  EXPECT_EQ(menus.ItemText(bar, 0, buffer, 255), 5);
  EXPECT_EQ(buffer, u"&File678");
  buffer = u"12";
  EXPECT_EQ(menus.ItemText(menus.SubMenuOf(bar, 0), 0, buffer, 4), 3);
  EXPECT_EQ(buffer, u"?pe");
  EXPECT_EQ(menus.ItemText(bar, 9, buffer, 255), 0);
  EXPECT_EQ(menus.ItemText(0, 0, buffer, 255), 0);
  EXPECT_EQ(menus.ItemText(bar, 0, buffer, 0), 0);
  EXPECT_EQ(buffer, u"?pe");
}

TEST(Desktop, AChangeReplacesTheWholeValueOfEachGivenKey) {
  Simulated simulated(
      R"({"windows": [{"id": 5, "class": "Box", "title": "old", "rect": [0, 0, 9, 9], "process": 3,
      "menu": {"items": [{"items": []}]}, "listBox": {"items": ["a", "b"], "itemHeight": 4, "top": 1}}]})");
  SimMenus& menus = simulated.platform.menus;
  const MenuHandle oldMenu = menus.MenuOf(5);
  const MenuHandle oldSubmenu = menus.SubMenuOf(oldMenu, 0);
  const Script change = ReadScript(R"({"windows": [{"id": 5}], "steps": [{"change": {"id": 5, "title": "new",
      "menu": {}, "listBox": {"items": ["c"]}}}]})");
  simulated.machine.desktop.Change(std::get<ChangeStep>(change.steps[0].action).fields);
  const Window& window = *simulated.machine.desktop.Find(5);
  EXPECT_EQ(window.title, u"new");
  EXPECT_EQ(window.className, u"Box");
  EXPECT_EQ(window.process, 3u);
  EXPECT_EQ(window.listBox->items, std::vector<Text>{u"c"});
  EXPECT_EQ(window.listBox->itemHeight, 16);
  EXPECT_EQ(window.listBox->top, 0);
  EXPECT_TRUE(menus.IsMenu(menus.MenuOf(5)));
  EXPECT_FALSE(menus.IsMenu(oldMenu));
  EXPECT_FALSE(menus.IsMenu(oldSubmenu));
}

constexpr std::string_view kObjects = R"({"machine": {"roleZero": "none\u0416"},
    "windows": [{"id": 1, "rect": [50, 50, 60, 60], "hung": true}],
    "objects": [
      {"rect": [0, 0, 100, 100], "name": "\u0416", "role": "client\u0416", "description": "d", "value": ""},
      {"rect": [10, 10, 20, 20]},
      {"rect": [20, 10, 30, 20], "role": ""},
      {"rect": [30, 10, 40, 20], "role": "client\u0416"},
      {"rect": [40, 10, 50, 20], "fails": true, "kills": true},
      {"rect": [60, 10, 70, 20], "kills": true},
      {"rect": [70, 10, 80, 20], "name": "n", "description": "d", "value": "marlin", "protected": true},
      {"rect": [80, 10, 90, 20], "value": "marlin", "protected": false}]})";

TEST(AccessibleObjects, TheTopmostTellsWhatItHas) {
  Simulated simulated(kObjects);
  SimAccessibility& accessibility = simulated.platform.accessibility;
  const auto below = accessibility.ObjectAt({0, 0});
  ASSERT_TRUE(below);
  EXPECT_EQ(below->name, u"\u0416");
  EXPECT_EQ(below->description, u"d");
  EXPECT_EQ(below->value, u"");
  EXPECT_EQ(accessibility.RoleText(below->role.value(), 128), u"client?");
  EXPECT_EQ(accessibility.RoleText(below->role.value(), 3), u"cli");
  const auto bare = accessibility.ObjectAt({10, 10});
  ASSERT_TRUE(bare);
  EXPECT_FALSE(bare->name || bare->role || bare->description || bare->value);
  EXPECT_EQ(accessibility.RoleText(accessibility.ObjectAt({20, 10})->role.value(), 128), u"");
  EXPECT_EQ(accessibility.ObjectAt({30, 10})->role, below->role);
}

TEST(AccessibleObjects, AProtectedOneTellsAllButItsValue) {
  Simulated simulated(kObjects);
  const auto facts = simulated.platform.accessibility.ObjectAt({70, 10});
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"n");
  EXPECT_EQ(facts->description, u"d");
  EXPECT_EQ(facts->value, std::nullopt);
  EXPECT_EQ(simulated.platform.accessibility.ObjectAt({80, 10})->value, u"marlin");
}

TEST(AccessibleObjects, RoleZeroHasTheMachinesText) {
  Simulated simulated(kObjects);
  EXPECT_EQ(simulated.platform.accessibility.RoleText(0, 128), u"none?");
  EXPECT_EQ(Simulated().platform.accessibility.RoleText(0, 128), u"unknown object");
  EXPECT_EQ(simulated.platform.accessibility.RoleText(77, 128), u"");
  EXPECT_EQ(simulated.platform.accessibility.RoleText(-1, 128), u"");
}

TEST(AccessibleObjects, AHungWindowAndAFailureAreLookedAtBeforeADeadlyOne) {
  Simulated simulated(kObjects);
  SimAccessibility& accessibility = simulated.platform.accessibility;
  EXPECT_FALSE(accessibility.ObjectAt({55, 55}));
  EXPECT_FALSE(accessibility.ObjectAt({45, 15}));
  EXPECT_FALSE(accessibility.ObjectAt({200, 15}));
  EXPECT_TRUE(simulated.machine.programRuns);
  bool killed = false;
  try {
    accessibility.ObjectAt({65, 15});
  } catch (const ProgramGone& gone) {
    killed = gone.killed;
  }
  EXPECT_TRUE(killed);
  EXPECT_FALSE(simulated.machine.programRuns);
}

}  // namespace
}  // namespace pointalk::sim
