// Scroll bars: a thumb that is dragged sounds by where it was before.
#include <gtest/gtest.h>

#include "tests/reader/strange_controls.h"

namespace pointalk {
namespace {

class ScrollBarTest : public StrangeControls {
 protected:
  ScrollBarTest() {
    EXPECT_TRUE(port.Open());
    port.SwitchMidi(true);
    delay.CalibrateDelayLoop();
    clicks.Take(513);
  }

  // Whether the pointer at x, over a part of the bar, makes a sound.
  bool Sounds(TextView part, std::int32_t x) {
    spot.texts.maccName = part;
    spot.point.x = x;
    Heard();
    controls.ReadAccessibleControl(spot);
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

TEST_F(ScrollBarTest, AThumbReadWithTheButtonUpIsWhereADragBegins) {
  clicks.Take(514);
  EXPECT_FALSE(Sounds(u"Position", 10));
  clicks.Take(513);
  EXPECT_TRUE(Sounds(u"Position", 20));
}

TEST_F(ScrollBarTest, AnythingElseReadInBetweenEndsTheDrag) {
  Sounds(u"Position", 10);
  EXPECT_FALSE(Sounds(u"Document", 15));
  EXPECT_FALSE(Sounds(u"Position", 20));
}

}  // namespace
}  // namespace pointalk
