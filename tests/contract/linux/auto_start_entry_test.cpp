// The desktop entry that has the session start Pointalk.
#include "linux/auto_start_entry.h"

#include <gtest/gtest.h>

#include <fstream>
#include <tuple>

#include "linux/folders.h"

namespace pointalk::linux {
namespace {

class AutoStartEntryTest : public ::testing::Test {
 protected:
  ~AutoStartEntryTest() override { std::ignore = StartWithSessionNoMore(); }
};

TEST_F(AutoStartEntryTest, OneThatTheDesktopsSettingsSwitchedOffStartsNothing) {
  EXPECT_FALSE(StartsWithSession());
  for (const char* const line :
       {"Hidden=true", "X-GNOME-Autostart-enabled=false", "X-MATE-Autostart-enabled=false"}) {
    ASSERT_TRUE(StartWithSession());
    EXPECT_TRUE(StartsWithSession());
    std::ofstream(ConfigHome() / "autostart" / "pointalk.desktop", std::ios::app) << line << '\n';
    EXPECT_FALSE(StartsWithSession()) << line;
  }
  ASSERT_TRUE(StartWithSession());
  EXPECT_TRUE(StartsWithSession());
}

TEST_F(AutoStartEntryTest, OneThatIsRemovedStartsNothing) {
  ASSERT_TRUE(StartWithSession());
  EXPECT_TRUE(StartWithSessionNoMore());
  EXPECT_FALSE(StartsWithSession());
}

}  // namespace
}  // namespace pointalk::linux
