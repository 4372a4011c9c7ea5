// What is kept in this room although the program does not use it.
#include <gtest/gtest.h>

#include "tests/speech/speaking.h"

namespace pointalk {
namespace {

class KeptInSpeech : public ::testing::Test, protected Speaking {};

TEST_F(KeptInSpeech, SpeechIsNeverHeld) {
  EXPECT_FALSE(speaker.HoldsSpeech());
  speaker.SpeakAndWait(u"one");
  EXPECT_FALSE(speaker.HoldsSpeech());
}

TEST_F(KeptInSpeech, PronouncedTextIsTheSameAsAString) {
  EXPECT_EQ(pronouncer.PronounceTextToString(u"TrayClock 2.5"), pronouncer.PronounceText(u"TrayClock 2.5"));
  EXPECT_EQ(pronouncer.PronounceTextToString(u"TrayClock 2.5"), u"Tray Clock  2  dot  5");
  simulated.machine.keys[kKeyShift].down = true;
  EXPECT_EQ(pronouncer.PronounceTextToString(u"Ok"), u"Capitl O k");
  EXPECT_EQ(pronouncer.PronounceTextToString(u""), u"");
}

}  // namespace
}  // namespace pointalk
