// The lines of SSIP.
#include "linux/ssip.h"

#include <gtest/gtest.h>

namespace pointalk::linux {
namespace {

TEST(SsipTest, ATextBecomesOneLine) {
  EXPECT_EQ(SsipText(u"OK button"), "OK button");
  EXPECT_EQ(SsipText(u" one\r\ntwo\tthree\u007F "), "one  two three");
  EXPECT_EQ(SsipText(u"Gr\u00FC\u00DFe \U0001F600"),
            "Gr\xC3\xBC\xC3\x9F"
            "e \xF0\x9F\x98\x80");
}

TEST(SsipTest, WhatHasNothingToBeSaidIsEmpty) {
  EXPECT_EQ(SsipText(u""), "");
  EXPECT_EQ(SsipText(u" \r\n\t"), "");
}

TEST(SsipTest, ALineThatBeginsWithADotDoesNotEndTheText) {
  EXPECT_EQ(SsipText(u"."), "..");
  EXPECT_EQ(SsipText(u"  ...and so on"), "....and so on");
  EXPECT_EQ(SsipText(u"e.g."), "e.g.");
  EXPECT_EQ(SpeakCommand("..x"), "SPEAK\r\n..x\r\n.\r\n");
}

TEST(SsipTest, LinesOfAnAnswerAreTold) {
  const auto first = ParseSsipLine("225-21");
  ASSERT_TRUE(first);
  EXPECT_EQ(first->code, 225);
  EXPECT_FALSE(first->isLast);
  EXPECT_EQ(first->text, "21");
  const auto last = ParseSsipLine("225 OK MESSAGE QUEUED");
  ASSERT_TRUE(last);
  EXPECT_TRUE(last->isLast);
  EXPECT_EQ(last->text, "OK MESSAGE QUEUED");
  EXPECT_TRUE(ParseSsipLine("225")->isLast);
}

TEST(SsipTest, WhatIsNoLineIsNone) {
  for (const char* const line : {"", "22", "2 5 OK", "OK", "-225"}) EXPECT_FALSE(ParseSsipLine(line)) << line;
}

TEST(SsipTest, BytesAreCutIntoLines) {
  SsipLines lines;
  lines.Add("210 OK\r\n70");
  EXPECT_EQ(lines.Next()->code, 210);
  EXPECT_FALSE(lines.Next());
  lines.Add("2 END\nnonsense\r\n703 CANCELED\r\n");
  EXPECT_EQ(lines.Next()->text, "END");
  EXPECT_EQ(lines.Next()->code, 703);
  EXPECT_FALSE(lines.Next());
}

// Taken off the beginning one by one, so many lines took minutes.
TEST(SsipTest, ALongListComesInAtOnce) {
  constexpr int kLines = 300'000;
  std::string list;
  for (int i = 0; i < kLines; ++i) list += "249-English (America)+Variant\ten-us\tVariant\r\n";
  SsipLines lines;
  lines.Add(list);
  int count = 0;
  while (lines.Next()) ++count;
  EXPECT_EQ(count, kLines);
}

TEST(SsipTest, ALineWithoutAnEndIsGivenUp) {
  SsipLines lines;
  for (int i = 0; i < 100; ++i) lines.Add(std::string(1000, '2'));
  lines.Add("\r\n210 OK\r\n");
  EXPECT_EQ(lines.Next()->code, 210);
}

TEST(SsipTest, AVoiceIsListedWithItsLanguageAndWithoutItsVariants) {
  const auto voice = ParseSsipVoice("English (America)\ten-us\tnone");
  ASSERT_TRUE(voice);
  EXPECT_EQ(voice->name, "English (America)");
  EXPECT_EQ(voice->language, "en-us");
  EXPECT_EQ(ParseSsipVoice("German\tde")->language, "de");
  EXPECT_FALSE(ParseSsipVoice("English (America)+Annie\ten-us\tAnnie"));
  EXPECT_FALSE(ParseSsipVoice("English\ten\tAnnie"));
  EXPECT_FALSE(ParseSsipVoice("no tabs"));
  EXPECT_FALSE(ParseSsipVoice("\ten\tnone"));
}

TEST(SsipTest, AVoiceIsForTheUserWhoseLanguageItSpeaks) {
  EXPECT_TRUE(IsForUser("en-us", "en_GB.UTF-8"));
  EXPECT_TRUE(IsForUser("DE", "de_AT"));
  EXPECT_TRUE(IsForUser("en", "C.UTF-8"));
  EXPECT_TRUE(IsForUser("en", ""));
  EXPECT_FALSE(IsForUser("de", "en_US"));
  EXPECT_FALSE(IsForUser("", "en_US"));
}

}  // namespace
}  // namespace pointalk::linux
