// The beginning of a text that is said of an object.
#include "reader/object_speech.h"

#include <gtest/gtest.h>

namespace pointalk {
namespace {

TEST(SpokenBeginning, EndsAfterTheFirstLineEnd) {
  constexpr struct {
    TextView text, spoken;
  } kRows[] = {
      {u"one line", u"one line"},
      {u"one\ntwo\nthree", u"one\n"},
      {u"one\rtwo", u"one\r"},
      {u"one\r\ntwo", u"one\r"},
      {u"one\n\rtwo", u"one\n"},
      {u"\ntwo", u"\n"},
      {u"", u""},
  };
  for (const auto& row : kRows) EXPECT_EQ(SpokenBeginning(row.text), row.spoken);
}

TEST(SpokenBeginning, HasAtMost133Characters) {
  EXPECT_EQ(SpokenBeginning(Text(133, u'x')), Text(133, u'x'));
  EXPECT_EQ(SpokenBeginning(Text(134, u'x')), Text(133, u'x'));
  EXPECT_EQ(SpokenBeginning(Text(200, u'x') + u"\n"), Text(133, u'x'));
  EXPECT_EQ(SpokenBeginning(Text(100, u'x') + u"\n" + Text(100, u'y')), Text(100, u'x') + u"\n");
}

}  // namespace
}  // namespace pointalk
