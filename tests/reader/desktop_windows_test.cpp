// The desktop's windows, found once.
#include "reader/desktop_windows.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "reader/top_window.h"
#include "tests/sim/simulated.h"

namespace pointalk {
namespace {

constexpr std::string_view kDesktop = R"({"windows": [
    {"id": 5, "class": "Progman", "title": "Program Manager"}, {"id": 6, "class": "View", "parent": 5},
    {"id": 7, "class": "Other", "parent": 5}, {"id": 8, "class": "SysListView32", "parent": 6}]})";

TEST(DesktopWindows, AreTheFirstChildrenBelowTheProgramManager) {
  sim::Simulated simulated(kDesktop);
  DesktopWindows desktop;
  desktop.FindDesktopIconList(simulated.platform.system, simulated.platform.windows);
  EXPECT_EQ(desktop.View(), 6u);
  EXPECT_EQ(desktop.IconList(), 8u);
}

TEST(DesktopWindows, AreNoneWhereThePathBreaksOff) {
  sim::Simulated whole(kDesktop);
  for (const char* windows : {"[]", R"([{"id": 5, "class": "Progman", "title": "Other"}])",
                              R"([{"id": 5, "class": "Progman", "title": "Program Manager"}])"}) {
    sim::Simulated simulated(std::string(R"({"windows": )") + windows + "}");
    DesktopWindows desktop;
    desktop.FindDesktopIconList(whole.platform.system, whole.platform.windows);
    desktop.FindDesktopIconList(simulated.platform.system, simulated.platform.windows);
    EXPECT_EQ(desktop.View(), 0u) << windows;
    EXPECT_EQ(desktop.IconList(), 0u) << windows;
  }
}

TEST(TopWindow, IsLookedForAmongSixtyFiveParents) {
  // A chain from window 100 up to the desktop's view, window 6.
  const auto nameAbove = [](int parents) {
    std::string windows = R"([{"id": 5, "class": "Progman", "title": "Program Manager"},)"
                          R"({"id": 6, "class": "View", "parent": 5},)"
                          R"({"id": 8, "class": "SysListView32", "parent": 6})";
    for (int i = 0; i < parents; ++i) {
      windows += ",{\"id\": " + std::to_string(100 + i) + ", \"class\": \"Pane\", \"title\": \"Pane " +
                 std::to_string(i) + "\", \"parent\": " + std::to_string(i + 1 < parents ? 101 + i : 6) + "}";
    }
    sim::Simulated simulated("{\"windows\": " + windows + "]}");
    sim::SimPlatform& seam = simulated.platform;
    DesktopWindows desktop;
    desktop.FindDesktopIconList(seam.system, seam.windows);
    WindowTitle titles(seam.messages, seam.windows);
    return TopWindow(seam.windows, desktop, titles).NameAbove(100);
  };
  EXPECT_EQ(nameAbove(1), u"Pane 0");
  EXPECT_EQ(nameAbove(65), u"Pane 64");
  EXPECT_EQ(nameAbove(66), u"");
}

}  // namespace
}  // namespace pointalk
