// Trimming, searching, replacing, splitting.
#include "text/text_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pointalk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Trimmed, LosesBlanksAndNothingElse) {
  EXPECT_EQ(Trimmed(u"  a b  "), u"a b");
  EXPECT_EQ(Trimmed(u"a"), u"a");
  EXPECT_EQ(Trimmed(u"\ta\r\n"), u"\ta\r\n");
  EXPECT_EQ(Trimmed(u" \u00A0 "), u"\u00A0");
  EXPECT_EQ(Trimmed(u"    "), u"");
  EXPECT_EQ(Trimmed(u""), u"");
}

TEST(IsBlank, HoldsForBlanksOnly) {
  EXPECT_TRUE(IsBlank(u""));
  EXPECT_TRUE(IsBlank(u"   "));
  EXPECT_FALSE(IsBlank(u" x "));
  EXPECT_FALSE(IsBlank(u"\t"));
  EXPECT_FALSE(IsBlank(u"\r\n"));
  EXPECT_FALSE(IsBlank(u"\u00A0"));
}

TEST(Contains, MindsCase) {
  EXPECT_TRUE(Contains(u"MsoCommandBar", u"Command"));
  EXPECT_FALSE(Contains(u"MsoCommandBar", u"command"));
  EXPECT_TRUE(Contains(u"abc", u"abc"));
  EXPECT_FALSE(Contains(u"ab", u"abc"));
  EXPECT_TRUE(Contains(u"abc", u""));
  EXPECT_TRUE(Contains(TextView(u"a\0b", 3), TextView(u"\0", 1)));
}

TEST(ContainsInLowerCase, TakesTheTextInLowerCase) {
  EXPECT_TRUE(ContainsInLowerCase(u"Scroll Bar", u"scroll bar"));
  EXPECT_TRUE(ContainsInLowerCase(u"scroll bar", u"scroll bar"));
  EXPECT_FALSE(ContainsInLowerCase(u"Scroll Bar", u"Scroll"));
  EXPECT_FALSE(ContainsInLowerCase(u"Scrol", u"scroll"));
  EXPECT_TRUE(ContainsInLowerCase(u"LINE UP", u"line up"));
  EXPECT_TRUE(ContainsInLowerCase(u"\u0401\u041B\u041A\u0410", u"\u0451\u043B\u043A\u0430"));
  EXPECT_TRUE(ContainsInLowerCase(u"", u""));
  EXPECT_FALSE(ContainsInLowerCase(u"", u"x"));
}

TEST(Replaced, ReplacesEveryOccurrenceOnce) {
  EXPECT_EQ(Replaced(u"a.b.c", u".", u" dot "), u"a dot b dot c");
  EXPECT_EQ(Replaced(u"aaa", u"aa", u"b"), u"ba");
  EXPECT_EQ(Replaced(u"aa", u"a", u"aa"), u"aaaa") << "what was put in is not searched again";
  EXPECT_EQ(Replaced(u"&File&", u"&", u""), u"File");
  EXPECT_EQ(Replaced(u"same", u"x", u"y"), u"same");
  EXPECT_EQ(Replaced(u"same", u"", u"y"), u"same");
  EXPECT_EQ(Replaced(u"", u"x", u"y"), u"");
}

TEST(UpToNul, StopsBeforeTheFirst) {
  EXPECT_EQ(UpToNul(TextView(u"ab\0cd\0", 6)), u"ab");
  EXPECT_EQ(UpToNul(u"abc"), u"abc");
  EXPECT_EQ(UpToNul(TextView(u"\0abc", 4)), u"");
}

TEST(Lines, EndAtTheLineEndOrTheEnd) {
  EXPECT_THAT(Lines(u"one\r\ntwo"), ElementsAre(u"one", u"two"));
  EXPECT_THAT(Lines(u"one\r\ntwo\r\n"), ElementsAre(u"one", u"two"));
  EXPECT_THAT(Lines(u"\r\n\r\nx"), ElementsAre(u"", u"", u"x"));
  EXPECT_THAT(Lines(u"a\nb\rc\r\nd"), ElementsAre(u"a\nb\rc", u"d")) << "a lone CR or LF ends no line";
  EXPECT_THAT(Lines(u"a\r"), ElementsAre(u"a\r"));
  EXPECT_THAT(Lines(u"\r\r\n"), ElementsAre(u"\r"));
  EXPECT_THAT(Lines(u""), IsEmpty());
}

}  // namespace
}  // namespace pointalk
