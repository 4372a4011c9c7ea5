// Numbers read from texts and written into them, and rounding.
#include "text/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace pointalk {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();

struct Reading {
  TextView text;
  double number;
};

TEST(ReadNumber, TakesTheNumberAtTheBeginning) {
  constexpr Reading kReadings[] = {
      {u"12", 12},    {u"4.4", 4.4},    {u"-5", -5},  {u"+5", 5},    {u"007", 7},
      {u"12abc", 12}, {u"75 loud", 75}, {u"1,5", 1},  {u"50%", 50},  {u"", 0},
      {u"six", 0},    {u"x0", 0},       {u"True", 0}, {u"False", 0}, {u"$5", 0},
  };
  for (const Reading& row : kReadings) {
    EXPECT_EQ(ReadNumber(row.text), row.number) << testing::PrintToString(row.text);
  }
}

TEST(ReadNumber, SkipsBlanksTabsAndLineFeedsAnywhere) {
  EXPECT_EQ(ReadNumber(u"   7"), 7);
  EXPECT_EQ(ReadNumber(u"1 2\t3\n4"), 1234);
  EXPECT_EQ(ReadNumber(u"- 5"), -5);
  EXPECT_EQ(ReadNumber(u"1 . 5"), 1.5);
  EXPECT_EQ(ReadNumber(u"1e 2"), 100);
  EXPECT_EQ(ReadNumber(u"\t\n 3"), 3);
  EXPECT_EQ(ReadNumber(u"1\r2"), 1) << "a carriage return is not skipped";
  EXPECT_EQ(ReadNumber(u"\r1"), 0);
  EXPECT_EQ(ReadNumber(u"1\u00A02"), 1) << "nor is a blank that does not break";
}

TEST(ReadNumber, TakesOneSignAndOnePoint) {
  EXPECT_EQ(ReadNumber(u".5"), 0.5);
  EXPECT_EQ(ReadNumber(u"-.5"), -0.5);
  EXPECT_EQ(ReadNumber(u"5."), 5);
  EXPECT_EQ(ReadNumber(u"1.2.3"), 1.2);
  EXPECT_EQ(ReadNumber(u"."), 0);
  EXPECT_EQ(ReadNumber(u"-"), 0);
  EXPECT_EQ(ReadNumber(u"+"), 0);
  EXPECT_EQ(ReadNumber(u"--5"), 0);
  EXPECT_EQ(ReadNumber(u"+-5"), 0);
  EXPECT_EQ(ReadNumber(u"-+5"), 0);
  EXPECT_EQ(ReadNumber(u"5-3"), 5);
}

TEST(ReadNumber, TakesAnExponent) {
  EXPECT_EQ(ReadNumber(u"1e2"), 100);
  EXPECT_EQ(ReadNumber(u"1E2"), 100);
  EXPECT_EQ(ReadNumber(u"1e+2"), 100);
  EXPECT_EQ(ReadNumber(u"25e-1"), 2.5);
  EXPECT_EQ(ReadNumber(u"1e"), 1);
  EXPECT_EQ(ReadNumber(u"1e-"), 1);
  EXPECT_EQ(ReadNumber(u"1ex"), 1);
  EXPECT_EQ(ReadNumber(u"1e2.5"), 100);
  EXPECT_EQ(ReadNumber(u"e5"), 0);
}

TEST(ReadNumber, ReadsDecimalDigitsOnly) {
  EXPECT_EQ(ReadNumber(u"&H10"), 0);
  EXPECT_EQ(ReadNumber(u"&O7"), 0);
  EXPECT_EQ(ReadNumber(u"0x10"), 0);
  EXPECT_EQ(ReadNumber(u"1d2"), 1);
  EXPECT_EQ(ReadNumber(u"inf"), 0);
  EXPECT_EQ(ReadNumber(u"nan"), 0);
  EXPECT_EQ(ReadNumber(u"-inf"), 0);
  EXPECT_EQ(ReadNumber(u"\u0665"), 0) << "an Arabic digit";
  EXPECT_EQ(ReadNumber(u"\uFF15"), 0) << "a fullwidth digit";
}

TEST(ReadNumber, IsInfiniteBeyondTheRangeAndZeroBelowIt) {
  const Text zeros(400, u'0');
  const Text nines(400, u'9');
  EXPECT_EQ(ReadNumber(u"1e400"), kInfinite);
  EXPECT_EQ(ReadNumber(u"-1e400"), -kInfinite);
  EXPECT_EQ(ReadNumber(nines), kInfinite);
  EXPECT_EQ(ReadNumber(nines + u"e-20"), kInfinite);
  EXPECT_EQ(ReadNumber(u"1e99999999999999999999"), kInfinite);
  EXPECT_EQ(ReadNumber(u"1e-400"), 0);
  EXPECT_EQ(ReadNumber(u"." + zeros + u"1"), 0);
  EXPECT_EQ(ReadNumber(u"0." + zeros + u"1e20"), 0);
  EXPECT_EQ(ReadNumber(u"0." + zeros + u"1e+800"), kInfinite);
  EXPECT_EQ(ReadNumber(u"1e-99999999999999999999"), 0);
  EXPECT_EQ(ReadNumber(u"0e99999999999999999999"), 0);
  EXPECT_EQ(ReadNumber(zeros + u"." + zeros + u"e500"), 0);
  EXPECT_EQ(ReadNumber(zeros + u"25"), 25);
  EXPECT_EQ(ReadNumber(u"1" + zeros + u"e-400"), 1);
}

TEST(Rounded, TakesHalvesToEven) {
  constexpr struct {
    double number;
    double whole;
  } kRows[] = {{0.5, 0},  {1.5, 2},   {2.5, 2},     {3.5, 4},
               {-0.5, 0}, {-1.5, -2}, {-2.5, -2},   {52.5, 52},
               {0.49, 0}, {0.51, 1},  {-0.51, -1},  {7, 7},
               {-7, -7},  {4.4, 4},   {1e15, 1e15}, {0.49999999999999994, 0},
               {-3.5, -4}};
  for (const auto& row : kRows) EXPECT_EQ(Rounded(row.number), row.whole) << row.number;
  EXPECT_EQ(Rounded(kInfinite), kInfinite);
  EXPECT_EQ(Rounded(-kInfinite), -kInfinite);
}

TEST(RoundedToInt32, GivesNothingForWhatDoesNotFit) {
  EXPECT_EQ(RoundedToInt32(2.5), 2);
  EXPECT_EQ(RoundedToInt32(2147483647), 2147483647);
  EXPECT_EQ(RoundedToInt32(2147483647.4), 2147483647);
  EXPECT_EQ(RoundedToInt32(2147483647.5), std::nullopt);
  EXPECT_EQ(RoundedToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(RoundedToInt32(-2147483649), std::nullopt);
  EXPECT_EQ(RoundedToInt32(kInfinite), std::nullopt);
  EXPECT_EQ(RoundedToInt32(-kInfinite), std::nullopt);
  EXPECT_EQ(RoundedToInt32(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

TEST(WholeNumberText, HasNoBlankInFront) {
  EXPECT_EQ(WholeNumberText(0), u"0");
  EXPECT_EQ(WholeNumberText(75), u"75");
  EXPECT_EQ(WholeNumberText(-5), u"-5");
  EXPECT_EQ(WholeNumberText(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

TEST(NumberText, HasFifteenDigitsAndNeverAnExponent) {
  constexpr struct {
    double number;
    TextView text;
  } kRows[] = {
      {0, u"0"},
      {-0.0, u"0"},
      {1, u"1"},
      {-1, u"-1"},
      {50.05, u"50.05"},
      {576, u"576"},
      {2794.8, u"2794.8"},
      {0.1, u"0.1"},
      {-0.25, u"-0.25"},
      {double{0.2F} * 100.1, u"20.0200002983212"},
      {1.0 / 3, u"0.333333333333333"},
      {2.0 / 3, u"0.666666666666667"},
      {0.05, u"0.05"},
      {1e-7, u"0.0000001"},
      {123456789012345, u"123456789012345"},
      {1234567890123456, u"1234567890123460"},
      {1e21, u"1000000000000000000000"},
      {999999999999999.5, u"1000000000000000"},
      {100, u"100"},
      {kInfinite, u"0"},
      {-kInfinite, u"0"},
  };
  for (const auto& row : kRows) EXPECT_EQ(NumberText(row.number), row.text) << row.number;
  EXPECT_EQ(NumberText(std::numeric_limits<double>::quiet_NaN()), u"0");
}

TEST(PercentAnswer, IsTakenWhenItIsNotZeroOrHoldsAZero) {
  constexpr struct {
    TextView answer;
    std::optional<std::int32_t> percent;
  } kRows[] = {
      {u"40", 40},         {u"150", 100},          {u"-5", 0},     {u"0", 0},
      {u"", std::nullopt}, {u"abc", std::nullopt}, {u"x0", 0},     {u"zero", std::nullopt},
      {u"12.5", 12},       {u"13.5", 14},          {u"0.4", 0},    {u".4", 0},
      {u"100.4", 100},     {u"1e400", 100},        {u"-1e400", 0}, {u" 7 5 ", 75},
      {u"4 0 0", 100},     {u"-", std::nullopt},   {u"ten 10", 0},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(PercentAnswer(row.answer), row.percent) << testing::PrintToString(row.answer);
  }
}

}  // namespace
}  // namespace pointalk
