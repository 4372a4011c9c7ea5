// The desktop's windows and the system's version, found once.
#include "reader/desktop_windows.h"

#include <gtest/gtest.h>

#include "reader/top_window.h"
#include "tests/sim/simulated.h"

namespace pointalk {
namespace {

class VersionedSystem final : public System {
 public:
  std::optional<SystemVersion> Version() override { return version; }
  Text ProgramFolder() override { return {}; }
  Text ShortPath(TextView, int) override { return {}; }
  bool SetClipboard(TextView) override { return false; }
  bool ShellOpen(TextView, TextView, TextView, TextView, int) override { return false; }
  void EndProgram() override { throw sim::ProgramGone{}; }

  std::optional<SystemVersion> version;
};

TEST(IsWindows95, HoldsForOneVersionOnly) {
  VersionedSystem system;
  EXPECT_FALSE(IsWindows95(system)) << "the system does not tell";
  constexpr struct {
    SystemVersion version;
    bool is;
  } kRows[] = {
      {{1, 4, 0}, true},  {{1, 4, 10}, false}, {{1, 4, 90}, false}, {{1, 3, 0}, false},
      {{2, 4, 0}, false}, {{2, 5, 1}, false},  {{0, 4, 0}, false},  {{2, 10, 0}, false},
  };
  for (const auto& row : kRows) {
    system.version = row.version;
    EXPECT_EQ(IsWindows95(system), row.is)
        << row.version.platform << " " << row.version.major << " " << row.version.minor;
  }
}

TEST(DesktopWindows, AreTheFirstChildrenBelowTheProgramManager) {
  sim::Simulated simulated(R"({"machine": {"windows95": true}, "windows": [
      {"id": 5, "class": "Progman", "title": "Program Manager"}, {"id": 6, "class": "View", "parent": 5},
      {"id": 7, "class": "Other", "parent": 5}, {"id": 8, "class": "SysListView32", "parent": 6}]})");
  DesktopWindows desktop;
  desktop.FindDesktopIconList(simulated.platform.system, simulated.platform.windows);
  EXPECT_EQ(desktop.mDesktopView, 6u);
  EXPECT_EQ(desktop.mDesktopListView, 8u);
  EXPECT_TRUE(desktop.mIsWindows95);
}

TEST(DesktopWindows, AreNoneWhereThePathBreaksOff) {
  for (const char* windows : {"[]", R"([{"id": 5, "class": "Progman", "title": "Other"}])",
                              R"([{"id": 5, "class": "Progman", "title": "Program Manager"}])"}) {
    sim::Simulated simulated(std::string(R"({"windows": )") + windows + "}");
    DesktopWindows desktop{1, 2, true};
    desktop.FindDesktopIconList(simulated.platform.system, simulated.platform.windows);
    EXPECT_EQ(desktop.mDesktopView, 0u) << windows;
    EXPECT_EQ(desktop.mDesktopListView, 0u) << windows;
    EXPECT_FALSE(desktop.mIsWindows95);
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
