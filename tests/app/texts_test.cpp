// The longer texts, pieced together a second time.
#include "app/texts.h"

#include <gtest/gtest.h>

namespace pointalk {
namespace {

TEST(Texts, InstructionsAreFourteenPieces) {
  constexpr TextView kPieces[] = {
      u"This mouse driver lets you hear your mouse position as two tones.  ",
      u"The lower tone tells your horizontal position, and the higher ",
      u"tone tells your vertical position.  When you stop moving, the ",
      u"tones stop.  As you get used to identifying your location, the ",
      u"computer screen should begin to take shape in front of your ",
      u"mind's eye.  To spell an item, hold the shift key.  To identify ",
      u"the kind of object hit the control key. Whenever you need to ",
      u"find the Pointalk control Panel, you can use Alt Tab to ",
      u"unminimize it to the top left of the screen. Pointalk may ",
      u"eventually be developed it into a complete stand alone screen ",
      u"reader package, but no promises are being made. At this time ",
      u"it is strictly a mouse driven real time screen reader to be used ",
      u"with existing readers as an accelerated navigational aid. Please ",
      u"explore the Pointalk control panel's menu for user options. ",
  };
  static_assert(std::size(kPieces) == 14);
  Text whole;
  for (const TextView piece : kPieces) whole += piece;
  EXPECT_EQ(kInstructions, whole);
}

TEST(Texts, GreetingNamesTheDriverInQuotes) {
  EXPECT_EQ(kGreeting, u"Hello, and welcome to Pointalk, the Audio Mouse \"Driver\".  ");
}

TEST(Texts, RightsAreOneSentenceWithRoomAfterIt) {
  EXPECT_EQ(kRightsStatement,
            u"Copyright Corvane.  You may use it and pass it on, unchanged and free of charge.  ");
}

}  // namespace
}  // namespace pointalk
