#include "sim/transcript.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace pointalk::sim {
namespace {

template <typename... Parts> std::string Line(const Parts&... parts) {
  Transcript transcript;
  transcript.Add("x", parts...);
  return transcript.Lines();
}

TEST(Transcript, WritesNumbersWithFifteenDigitsAndNoExponent) {
  const struct {
    double value;
    const char* written;
  } rows[] = {
      {0, "0"},
      {-0.0, "0"},
      {1, "1"},
      {-1, "-1"},
      {240, "240"},
      {1000000, "1000000"},
      {0.5, "0.5"},
      {-0.25, "-0.25"},
      {158.75, "158.75"},
      {0.1, "0.1"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {123456789012345678.0, "123456789012346000"},
      {1e21, "1000000000000000000000"},
      {1e-7, "0.0000001"},
      {-1.5e-10, "-0.00000000015"},
      {999999999999999.9, "1000000000000000"},
      {0.99999999999999999, "1"},
      {12345.678, "12345.678"},
  };
  for (const auto& row : rows) EXPECT_EQ(Line(Number{row.value}), std::string("x ") + row.written + "\n");
}

TEST(Transcript, WritesTheLargestNumberInFull) {
  const std::string line = Line(Number{std::numeric_limits<double>::max()});
  EXPECT_EQ(line, "x 179769313486232" + std::string(294, '0') + "\n");
}

TEST(Transcript, WritesTextsAsJsonStrings) {
  EXPECT_EQ(Line(TextView(u"a\"b\\c\b\t\n\f\r\x01\x1F\x7F/\u00E9\u20AC\uFFFF")),
            "x \"a\\\"b\\\\c\\b\\t\\n\\f\\r\\u0001\\u001f\x7F/\xC3\xA9\xE2\x82\xAC\xEF\xBF\xBF\"\n");
  EXPECT_EQ(Line(Text(u"a\0b", 3)), "x \"a\\u0000b\"\n");
  EXPECT_EQ(Line(Text(1, u'\xD800')), "x \"\xEF\xBF\xBD\"\n");
}

TEST(Transcript, ForgetsWhatItIsToldTo) {
  Transcript transcript;
  transcript.Add("x", 1);
  transcript.Clear();
  transcript.Add("x", 2);
  EXPECT_EQ(transcript.Lines(), "x 2\n");
}

TEST(Transcript, WritesHexadecimalNumbersAndBareNames) {
  EXPECT_EQ(Line(Hexadecimal{0}), "x 0x0\n");
  EXPECT_EQ(Line(Hexadecimal{0xFFFFFFFF}), "x 0xffffffff\n");
  EXPECT_EQ(Line(Hexadecimal{0x59339e}, -5, 7u, Bare{u"mnuVoiceMute"}, "on"),
            "x 0x59339e -5 7 mnuVoiceMute on\n");
}

}  // namespace
}  // namespace pointalk::sim
