// How short messages are composed.
#include "tones/short_messages.h"

#include <gtest/gtest.h>

namespace pointalk {
namespace {

TEST(ShortMessages, HoldStatusNoteAndVelocity) {
  EXPECT_EQ(NoteOn(13, 76, 100), 0x644C9Du);
  EXPECT_EQ(NoteOff(14, 40, 20), 0x14288Eu);
  EXPECT_EQ(NoteOn(0, 0, 0), 0x90u);
  EXPECT_EQ(NoteOff(15, 127, 127), 0x7F7F8Fu);
  EXPECT_EQ(ProgramChange(13, 50), 0x32CDu);
  EXPECT_EQ(ProgramChange(0, 0), 0xC0u);
}

TEST(ShortMessages, TakeValuesThatMidiDoesNotKnow) {
  EXPECT_EQ(ProgramChange(13, 200), 0xC8CDu);
  EXPECT_EQ(NoteOn(12, 231, 127), 0x7FE79Cu);
  EXPECT_EQ(NoteOn(12, 256, 0), 0x1009Cu) << "spills into the velocity";
  EXPECT_EQ(ProgramChange(13, -3), 0xFFFFFDCDu);
}

}  // namespace
}  // namespace pointalk
