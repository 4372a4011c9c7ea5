// The word of a line at a position, and the halves of a character's place.
#include "reader/edit_words.h"

#include <gtest/gtest.h>

namespace pointalk {
namespace {

TEST(WordAt, TakesTheWordWithItsLeadingBlank) {
  constexpr struct {
    TextView line;
    std::int32_t position;
    std::int32_t start;
    TextView word;
  } kRows[] = {
      // Blanks are the 4th and the 8th character.
      {u"one two three", 0, 1, u"one"},       {u"one two three", 2, 1, u"one"},
      {u"one two three", 3, 1, u"one"},       {u"one two three", 4, 4, u" two"},
      {u"one two three", 7, 4, u" two"},      {u"one two three", 8, 8, u" three"},
      {u"one two three", 12, 8, u" three"},   {u"one two three", 99, 8, u" three"},
      {u"one two three", -1, 1, u"one"},      {u"single", 5, 1, u"single"},
      {u" led by a blank", 0, 1, u" led"},    {u" led by a blank", 1, 1, u" led"},
      {u"two  blanks", 4, 4, u"two  blanks"},  // between them lies a blank word
      {u"two  blanks", 5, 5, u" blanks"},     {u"ends in a blank ", 16, 16, u"ends in a blank "},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(testing::PrintToString(Text(row.line)) + " at " + std::to_string(row.position));
    const LineWord found = WordAt(row.line, row.position);
    EXPECT_EQ(found.word, row.word);
    EXPECT_EQ(found.start, row.start);
    EXPECT_FALSE(found.emptyLine);
  }
}

TEST(WordAt, LeavesLineEndsOutOfTheCount) {
  const LineWord found = WordAt(u"\r\none\r two\n", 4);
  EXPECT_EQ(found.word, u" two");
  EXPECT_EQ(found.start, 4);
}

TEST(WordAt, FindsNothingInALineOfBlanksAndLineEnds) {
  for (const TextView line : {u"", u"   ", u"\r\n", u" \r \n "}) {
    const LineWord found = WordAt(line, 1);
    EXPECT_TRUE(found.emptyLine);
    EXPECT_EQ(found.start, 0);
    EXPECT_EQ(found.word, u"");
  }
}

TEST(SplitCharPosition, GivesLineAndCharacter) {
  constexpr struct {
    std::int32_t answer, line, character;
  } kRows[] = {
      {0, 0, 0},       {5, 0, 5},         {65536, 1, 0},
      {131079, 2, 7},  {65535, 0, 65535}, {2147483647, 32767, 65535},
      {-65536, -1, 0}, {-65530, 0, 6},    {-2147483647 - 1, -32768, 0},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(SplitCharPosition(row.answer).line, row.line) << row.answer;
    EXPECT_EQ(SplitCharPosition(row.answer).character, row.character) << row.answer;
  }
}

}  // namespace
}  // namespace pointalk
