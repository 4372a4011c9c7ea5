// Pointer, keys, screen and mouse reports.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InputContract : public ::testing::Test {
 protected:
  std::unique_ptr<World> world_ = MakeWorld({{{"ground", u"Ground", u"", {100, 100, 500, 400}}}});
  Input& input_ = world_->Seam().input;
  const int key_ = world_->IdleKey();
};

TEST_F(InputContract, ThePointerIsWhereItWasPut) {
  for (const Point place : {Point{300, 200}, Point{301, 200}, Point{0, 0}}) {
    world_->MovePointer(place);
    EXPECT_EQ(input_.PointerPosition(), place);
  }
}

TEST_F(InputContract, AKeyIsDownWhileItIsHeld) {
  EXPECT_FALSE(input_.KeyDown(key_));
  world_->SetKey(key_, true);
  EXPECT_TRUE(input_.KeyDown(key_));
  EXPECT_TRUE(input_.KeyDown(key_));
  world_->SetKey(key_, false);
  EXPECT_FALSE(input_.KeyDown(key_));
}

TEST_F(InputContract, ATappedKeyIsSeenOnce) {
  world_->TapKey(key_);
  EXPECT_TRUE(input_.KeyDown(key_));
  EXPECT_FALSE(input_.KeyDown(key_));
}

TEST_F(InputContract, TheScreenIsMeasuredInTwipsOfItsPixels) {
  const auto screen = input_.Screen();
  ASSERT_TRUE(screen);
  const Point pixels = world_->ScreenSizeInPixels();
  EXPECT_EQ(screen->widthTwips / screen->twipsPerPixelX, pixels.x);
  EXPECT_EQ(screen->heightTwips / screen->twipsPerPixelY, pixels.y);
}

TEST_F(InputContract, TheMouseIsReportedWhileTheFormWantsIt) {
  world_->MovePointer({300, 200});
  world_->SetLeftButton(true);
  world_->SetLeftButton(false);
  EXPECT_THAT(world_->MouseReports(0), IsEmpty());
  ASSERT_TRUE(input_.ReportMouse(true));
  world_->SetLeftButton(true);
  EXPECT_TRUE(input_.KeyDown(kKeyLeftButton));
  world_->SetLeftButton(false);
  EXPECT_THAT(world_->MouseReports(2), ElementsAre(513, 514));
  ASSERT_TRUE(input_.ReportMouse(false));
  world_->SetLeftButton(true);
  world_->SetLeftButton(false);
  ASSERT_TRUE(input_.ReportMouse(true));
  world_->MovePointer({400, 300});  // or it would be a double click
  world_->SetLeftButton(true);
  EXPECT_TRUE(input_.KeyDown(kKeyLeftButton));
  world_->SetLeftButton(false);
  EXPECT_THAT(world_->MouseReports(4), ElementsAre(513, 514, 513, 514));
}

}  // namespace
}  // namespace pointalk::contract
