// Scroll bars: a thumb that is dragged sounds by where it was before.
#include <gtest/gtest.h>

#include "tests/reader/strange_controls.h"

namespace pointalk {
namespace {

class ScrollBarTest : public StrangeControls {
 protected:
  ScrollBarTest() {
    port.OpenMidiOut();
    port.SwitchMidiOn();
    delay.CalibrateDelayLoop();
    input.mButtonDown = true;
  }

  // Whether the pointer at x, over a part of the bar, makes a sound.
  bool Sounds(TextView part, std::int32_t x) {
    description.maccName = part;
    input.mCursorX = x;
    Heard();
    controls.ReadAccessibleControl(2);
    return Heard().find("midi") != std::string::npos;
  }
};

TEST_F(ScrollBarTest, AThumbSoundsFromItsSecondPlaceOn) {
  EXPECT_FALSE(Sounds(u"Position", 10));
  EXPECT_TRUE(Sounds(u"Position", 20));
  EXPECT_FALSE(Sounds(u"Position", 20));
}

TEST_F(ScrollBarTest, AThumbThatWasLeftForAnArrowBeginsAnew) {
  Sounds(u"Position", 10);
  EXPECT_TRUE(Sounds(u"Line down", 15));
  EXPECT_FALSE(Sounds(u"Position", 20));
  EXPECT_TRUE(Sounds(u"Position", 30));
}

}  // namespace
}  // namespace pointalk
