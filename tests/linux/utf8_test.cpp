// UTF-8 and back.
#include "linux/utf8.h"

#include <gtest/gtest.h>

namespace pointalk::linux {
namespace {

TEST(Utf8Test, EveryLengthComesAndGoes) {
  const struct {
    Text text;
    std::string utf8;
  } kRows[] = {
      {u"", ""},
      {u"a\u007F", "a\x7F"},
      {u"\u0080\u07FF", "\xC2\x80\xDF\xBF"},
      {u"\u0800\uFFFF", "\xE0\xA0\x80\xEF\xBF\xBF"},
      {u"\U00010000\U0010FFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
      {Text(u"a\0b", 3), std::string("a\0b", 3)},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(ToUtf8(row.text), row.utf8);
    EXPECT_EQ(FromUtf8(row.utf8), row.text);
  }
}

TEST(Utf8Test, HalfOfAPairIsReplaced) {
  EXPECT_EQ(ToUtf8(Text{u'a', char16_t{0xD800}}), "a\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(Text{char16_t{0xDC00}, u'b'}),
            "\xEF\xBF\xBD"
            "b");
}

TEST(Utf8Test, WhatIsNoUtf8IsReplacedByteByByte) {
  const struct {
    std::string utf8;
    Text text;
  } kRows[] = {
      {"a\x80z", u"a\uFFFDz"},                            // a tail without a lead
      {"\xC3", u"\uFFFD"},                                // cut short
      {"\xE2\x82", u"\uFFFD\uFFFD"},                      // the same
      {"\xC0\x80", u"\uFFFD\uFFFD"},                      // longer than needed
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},            // half of a pair
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond the last character
      {"\xFF", u"\uFFFD"},
  };
  for (const auto& row : kRows) EXPECT_EQ(FromUtf8(row.utf8), row.text) << testing::PrintToString(row.utf8);
}

TEST(Utf8Test, ATextOfAnotherProgramHasAnEnd) {
  EXPECT_EQ(FromUtf8(std::string(100'000, 'x')).size(), kLongestForeignText);
  EXPECT_EQ(FromUtf8("abc", 2), u"ab");
  EXPECT_EQ(FromUtf8("a\xF0\x9F\x98\x80", 2), u"a");  // a pair is not cut apart
}

}  // namespace
}  // namespace pointalk::linux
