// The system as a whole, its code page and its clock, and the panel's menu and timer.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <thread>

#include "app/panel_table.h"
#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

class SystemContract : public ::testing::Test {
 protected:
  std::unique_ptr<World> world_ = MakeWorld({});
  Platform seam_ = world_->Seam();
};

TEST_F(SystemContract, TheVersionIsNotThatOfWindows95) {
  const auto version = seam_.system.Version();
  ASSERT_TRUE(version);
  EXPECT_EQ(version->platform, 2U);
  EXPECT_GE(version->major, 5U);
}

TEST_F(SystemContract, TheProgramsFolderHasNoBackslashAtItsEnd) {
  const Text folder = seam_.system.ProgramFolder();
  ASSERT_FALSE(folder.empty());
  EXPECT_EQ(folder.substr(1, 2), u":\\");
  EXPECT_NE(folder.back(), u'\\');
}

TEST_F(SystemContract, AShortPathIsCutToItsRoom) {
  const Text whole = seam_.system.ShortPath(seam_.system.ProgramFolder(), 1000);
  EXPECT_FALSE(whole.empty());
  EXPECT_EQ(seam_.system.ShortPath(seam_.system.ProgramFolder(), 4), whole.substr(0, 4));
}

TEST_F(SystemContract, TheClipboardHoldsTheLastText) {
  EXPECT_TRUE(seam_.system.SetClipboard(u"first"));
  EXPECT_TRUE(seam_.system.SetClipboard(u"Gr\u00FC\u00DFe\r\n\u4E2D"));
  EXPECT_EQ(world_->Clipboard(), u"Gr\u00FC\u00DFe\r\n?");
  EXPECT_TRUE(seam_.system.SetClipboard(u""));
  EXPECT_EQ(world_->Clipboard(), u"");
}

TEST_F(SystemContract, TheCodePageConvertsBothWays) {
  const std::vector<std::byte> bytes = seam_.ansi.ToBytes(TextView(u"a\0\u00E9\u20AC\u4E2D", 5));
  EXPECT_EQ(bytes,
            (std::vector{std::byte{'a'}, std::byte{0}, std::byte{0xE9}, std::byte{0x80}, std::byte{'?'}}));
  EXPECT_EQ(seam_.ansi.ToText(bytes), Text(u"a\0\u00E9\u20AC?", 5));
  EXPECT_TRUE(seam_.ansi.ToBytes(u"").empty());
  EXPECT_EQ(seam_.ansi.ToText({}), u"");
}

TEST_F(SystemContract, TheCodePageTakesNoLetterForASimilarOne) {
  const auto bytes = seam_.ansi.ToBytes(u"\u0101\u2192\u2011\uFF21\u0100z\U0001F600");
  EXPECT_EQ(seam_.ansi.ToText(bytes), u"?????z??");
  EXPECT_TRUE(seam_.system.SetClipboard(u"\u0101"));
  EXPECT_EQ(world_->Clipboard(), u"?");
}

TEST_F(SystemContract, TheDelayLoopTakesTime) {
  const double before = seam_.clock.SecondsSinceMidnight();
  EXPECT_GE(before, 0);
  EXPECT_LT(before, 86'400);
  seam_.clock.BeginPasses();
  for (int pass = 0; pass < 100; ++pass) seam_.clock.SpinPass();
  const double after = seam_.clock.SecondsSinceMidnight();
  EXPECT_TRUE(after > before || before > 86'000) << before << " " << after;
}

// Also where the processor was taken away in the midst of the loop.
TEST_F(SystemContract, EveryPassOfTheDelayLoopTakesTheSameTime) {
  constexpr double kDay = 86'400;
  const double begin = seam_.clock.BeginPasses();
  const double firstEnd = seam_.clock.SpinPass();
  for (int pass = 2; pass <= 200; ++pass) {
    if (pass == 100) std::this_thread::sleep_for(std::chrono::milliseconds(30));
    const double expected = begin + pass * (firstEnd - begin);
    EXPECT_NEAR(std::remainder(seam_.clock.SpinPass() - expected, kDay), 0, 1e-8) << pass;
  }
}

// What was made up for in one loop is nothing to the next.
TEST_F(SystemContract, ADelayLoopBeginsAtTheTimeOfItsBeginning) {
  const double firstBegin = seam_.clock.BeginPasses();
  const double firstLength = seam_.clock.SpinPass() - firstBegin;
  std::this_thread::sleep_for(std::chrono::milliseconds(30));
  const double now = seam_.clock.SecondsSinceMidnight();
  const double begin = seam_.clock.BeginPasses();
  EXPECT_TRUE(begin >= now || now > 86'000) << now << " " << begin;
  EXPECT_NEAR(seam_.clock.SpinPass() - begin, firstLength, 1e-8);
}

TEST_F(SystemContract, EveryMenuEntryHasACheckMark) {
  for (const MenuEntry& entry : PanelMenu()) {
    if (entry.handler == nullptr) continue;
    EXPECT_EQ(seam_.panel.MenuChecked(entry.name), entry.checkedAtStart);
    seam_.panel.SetMenuChecked(entry.name, !entry.checkedAtStart);
    EXPECT_EQ(seam_.panel.MenuChecked(entry.name), !entry.checkedAtStart);
  }
  EXPECT_FALSE(seam_.panel.MenuChecked(u"mnuNobody"));
  seam_.panel.SetMenuChecked(u"mnuNobody", true);
  EXPECT_FALSE(seam_.panel.MenuChecked(u"mnuNobody"));
}

TEST_F(SystemContract, TheTimerIsOffUntilItIsSwitchedOn) {
  EXPECT_FALSE(seam_.panel.TimerEnabled());
  seam_.panel.SetTimerInterval(30);
  seam_.panel.SetTimerEnabled(true);
  EXPECT_TRUE(seam_.panel.TimerEnabled());
  seam_.panel.SetTimerEnabled(false);
  EXPECT_FALSE(seam_.panel.TimerEnabled());
}

}  // namespace
}  // namespace pointalk::contract
