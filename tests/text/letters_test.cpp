// Upper and lower case: one character becomes one character.
#include "text/letters.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace pointalk {
namespace {

struct Case {
  const char* what;
  char16_t character;
  char16_t upper;
  char16_t lower;
};

constexpr Case kCases[] = {
    {"small letter", u'a', u'A', u'a'},
    {"last small letter", u'z', u'Z', u'z'},
    {"capital", u'A', u'A', u'a'},
    {"last capital", u'Z', u'Z', u'z'},
    {"before the capitals", u'@', u'@', u'@'},
    {"after the capitals", u'[', u'[', u'['},
    {"before the small letters", u'`', u'`', u'`'},
    {"after the small letters", u'{', u'{', u'{'},
    {"digit", u'7', u'7', u'7'},
    {"blank", u' ', u' ', u' '},
    {"NUL", u'\0', u'\0', u'\0'},
    {"e with acute", 0x00E9, 0x00C9, 0x00E9},
    {"E with acute", 0x00C9, 0x00C9, 0x00E9},
    {"multiplication sign among the capitals", 0x00D7, 0x00D7, 0x00D7},
    {"division sign among the small letters", 0x00F7, 0x00F7, 0x00F7},
    {"sharp s, whose capital would be two characters", 0x00DF, 0x00DF, 0x00DF},
    {"capital sharp s", 0x1E9E, 0x1E9E, 0x00DF},
    {"y with diaeresis, whose capital lies in another block", 0x00FF, 0x0178, 0x00FF},
    {"micro sign", 0x00B5, 0x039C, 0x00B5},
    {"small letter of an alternating row", 0x0101, 0x0100, 0x0101},
    {"capital of an alternating row", 0x0100, 0x0100, 0x0101},
    {"capital I with dot", 0x0130, 0x0130, u'i'},
    {"small i without dot", 0x0131, u'I', 0x0131},
    {"long s", 0x017F, u'S', 0x017F},
    {"double letter with a capital beginning", 0x01C5, 0x01C4, 0x01C6},
    {"sigma", 0x03C3, 0x03A3, 0x03C3},
    {"sigma at a word's end", 0x03C2, 0x03A3, 0x03C2},
    {"Cyrillic small a", 0x0430, 0x0410, 0x0430},
    {"Cyrillic capital io", 0x0401, 0x0401, 0x0451},
    {"Kelvin sign", 0x212A, 0x212A, u'k'},
    {"Roman numeral eight", 0x2167, 0x2167, 0x2177},
    {"fullwidth small a", 0xFF41, 0xFF21, 0xFF41},
    {"Hebrew letter, which has one form", 0x05D0, 0x05D0, 0x05D0},
    {"Chinese character, which has one form", 0x4E2D, 0x4E2D, 0x4E2D},
    {"half of a surrogate pair", 0xD801, 0xD801, 0xD801},
    {"last character of all", 0xFFFF, 0xFFFF, 0xFFFF},
};

TEST(Letters, HaveAnUpperAndALowerForm) {
  for (const Case& row : kCases) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(ToUpper(row.character), row.upper);
    EXPECT_EQ(ToLower(row.character), row.lower);
    EXPECT_EQ(IsCapital(row.character), row.character != row.lower);
  }
}

TEST(Letters, StayWhenChangedTwice) {
  for (std::uint32_t code = 0; code <= 0xFFFF; ++code) {
    const auto character = static_cast<char16_t>(code);
    ASSERT_EQ(ToLower(ToLower(character)), ToLower(character)) << code;
    ASSERT_EQ(ToUpper(ToUpper(character)), ToUpper(character)) << code;
  }
}

TEST(Letters, ChangeAWholeTextOfEqualLength) {
  EXPECT_EQ(ToLower(u"SysListView32 \u00C9\u0416"), u"syslistview32 \u00E9\u0436");
  EXPECT_EQ(ToUpper(u"stra\u00DFe 3"), u"STRA\u00DFE 3");
  EXPECT_EQ(ToLower(u""), u"");
  EXPECT_EQ(ToUpper(u""), u"");
}

}  // namespace
}  // namespace pointalk
