// Windows, what they are and how they hang together.
#include <gtest/gtest.h>

#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

class WindowTreeContract : public ::testing::Test {
 protected:
  std::unique_ptr<World> world_ = MakeWorld({{
      {"below", u"ContractBelow", u"Below", {100, 100, 500, 400}},
      {"above", u"ContractAbove", u"Gr\u00FC\u00DFe", {300, 200, 600, 500}},
      {"child", u"ContractChild", u"Inside", {310, 210, 400, 300}, "above"},
      {"second", u"ContractSecond", u"", {110, 310, 200, 390}, "below"},
  }});
  WindowTree& windows_ = world_->Seam().windows;
};

TEST_F(WindowTreeContract, TheTopmostWindowUnderAPointIsFound) {
  EXPECT_EQ(windows_.WindowAt({150, 150}), world_->Window("below"));
  EXPECT_EQ(windows_.WindowAt({350, 450}), world_->Window("above"));
  EXPECT_EQ(windows_.WindowAt({350, 250}), world_->Window("child"));
  EXPECT_EQ(windows_.WindowAt({100, 100}), world_->Window("below"));
  EXPECT_NE(windows_.WindowAt({99, 100}), world_->Window("below"));
}

TEST_F(WindowTreeContract, AClassNameIsCutToItsLimit) {
  EXPECT_EQ(windows_.ClassOf(world_->Window("child"), 2047), u"ContractChild");
  EXPECT_EQ(windows_.ClassOf(world_->Window("child"), 14), u"ContractChild");
  EXPECT_EQ(windows_.ClassOf(world_->Window("child"), 13), u"ContractChil");
  EXPECT_EQ(windows_.ClassOf(world_->Window("child"), 2), u"C");
}

TEST_F(WindowTreeContract, ParentsAndChildrenFindEachOther) {
  EXPECT_EQ(windows_.ParentOf(world_->Window("child")), world_->Window("above"));
  EXPECT_EQ(windows_.ParentOf(world_->Window("above")), 0U);
  EXPECT_EQ(windows_.FirstChildOf(world_->Window("above")), world_->Window("child"));
  EXPECT_EQ(windows_.FirstChildOf(world_->Window("child")), 0U);
}

TEST_F(WindowTreeContract, ATopLevelWindowIsFoundByClassAndTitle) {
  EXPECT_EQ(windows_.FindTopLevel(u"ContractBelow", u"Below"), world_->Window("below"));
  EXPECT_EQ(windows_.FindTopLevel(u"ContractAbove", u"Gr\u00FC\u00DFe"), world_->Window("above"));
  EXPECT_EQ(windows_.FindTopLevel(u"ContractAbove", u"Below"), 0U);
  EXPECT_EQ(windows_.FindTopLevel(u"ContractChild", u"Inside"), 0U);
}

TEST_F(WindowTreeContract, WindowsOfOneProgramHaveOneProcess) {
  const auto process = windows_.ProcessOf(world_->Window("below"));
  ASSERT_TRUE(process);
  EXPECT_NE(*process, 0U);
  EXPECT_EQ(windows_.ProcessOf(world_->Window("child")), process);
}

TEST_F(WindowTreeContract, APointIsTakenIntoTheWindow) {
  EXPECT_EQ(windows_.ToClient(world_->Window("child"), {315, 220}), (Point{5, 10}));
  EXPECT_EQ(windows_.ToClient(world_->Window("child"), {300, 200}), (Point{-10, -10}));
}

TEST_F(WindowTreeContract, TheCaptionIsCutToItsRoom) {
  EXPECT_EQ(windows_.CaptionOf(world_->Window("above"), 100), u"Gr\u00FC\u00DFe");
  EXPECT_EQ(windows_.CaptionOf(world_->Window("above"), 4), u"Gr\u00FC");
  EXPECT_EQ(windows_.CaptionOf(world_->Window("above"), 1), u"");
  EXPECT_EQ(windows_.CaptionOf(world_->Window("above"), 0), u"");
  EXPECT_EQ(windows_.CaptionOf(world_->Window("second"), 100), u"");
}

TEST_F(WindowTreeContract, WhatIsNoWindowHasNothing) {
  for (const WindowHandle handle : {WindowHandle{0}, world_->NoWindow()}) {
    EXPECT_EQ(windows_.ClassOf(handle, 100), std::nullopt);
    EXPECT_EQ(windows_.ParentOf(handle), 0U);
    EXPECT_EQ(windows_.FirstChildOf(handle), 0U);
    EXPECT_EQ(windows_.ProcessOf(handle), std::nullopt);
    EXPECT_EQ(windows_.ToClient(handle, {1, 2}), std::nullopt);
    EXPECT_EQ(windows_.CaptionOf(handle, 100), u"");
  }
}

TEST_F(WindowTreeContract, AHungWindowIsFoundAllTheSame) {
  world_->Hang("above");
  EXPECT_EQ(windows_.WindowAt({350, 250}), world_->Window("child"));
  EXPECT_EQ(windows_.ClassOf(world_->Window("child"), 100), u"ContractChild");
  EXPECT_EQ(windows_.ParentOf(world_->Window("child")), world_->Window("above"));
  EXPECT_EQ(windows_.FindTopLevel(u"ContractAbove", u"Gr\u00FC\u00DFe"), world_->Window("above"));
  EXPECT_EQ(windows_.CaptionOf(world_->Window("child"), 100), u"Inside");
}

}  // namespace
}  // namespace pointalk::contract
