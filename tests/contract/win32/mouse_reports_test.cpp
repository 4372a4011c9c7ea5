// Mouse reports as the hook makes them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/contract/win32/win_world.h"

namespace pointalk::contract {
namespace {

using testing::ElementsAre;

class MouseReportsTest : public testing::Test {
 protected:
  MouseReportsTest() {
    world_.MovePointer({200, 200});
    EXPECT_TRUE(world_.platform.input.ReportMouse(true));
  }

  void Click() {
    world_.SetLeftButton(true);
    world_.SetLeftButton(false);
  }

  WinWorld world_{{{{"ground", u"ContractGround", u"", {100, 100, 500, 400}}}}};
};

TEST_F(MouseReportsTest, ADoubleClickIsReportedInPlaceOfItsSecondPress) {
  Click();
  Click();
  EXPECT_THAT(world_.MouseReports(4), ElementsAre(513, 514, 515, 514));
}

TEST_F(MouseReportsTest, ClicksApartAreSingleClicks) {
  Click();
  EXPECT_THAT(world_.MouseReports(2), ElementsAre(513, 514));
  world_.MovePointer({300, 300});
  Click();
  EXPECT_THAT(world_.MouseReports(4), ElementsAre(513, 514, 513, 514));
}

TEST_F(MouseReportsTest, TheMouseDoesNotWaitForTheForm) {
  Click();
  SetCursorPos(300, 300);
  EXPECT_EQ(world_.platform.input.PointerPosition(), (Point{300, 300}));
  EXPECT_TRUE(world_.mouseReports.empty());
  EXPECT_THAT(world_.MouseReports(2), ElementsAre(513, 514));
}

TEST_F(MouseReportsTest, SwitchingThemOnTwiceReportsOnce) {
  EXPECT_TRUE(world_.platform.input.ReportMouse(true));
  Click();
  EXPECT_THAT(world_.MouseReports(2), ElementsAre(513, 514));
  world_.MovePointer({300, 300});
  Click();
  EXPECT_THAT(world_.MouseReports(4), ElementsAre(513, 514, 513, 514));
}

}  // namespace
}  // namespace pointalk::contract
