// Values of every kind as texts.
#include "registry/variant.h"

#include <gtest/gtest.h>

#include <limits>

namespace pointalk {
namespace {

struct Shown {
  Variant value;
  TextView text;
};

TEST(VariantText, ShowsEveryKind) {
  const Shown rows[] = {
      {VariantEmpty(), u""},
      {VariantNull(), u""},
      {std::int16_t{-5}, u"-5"},
      {std::int32_t{100000}, u"100000"},
      {0.1f, u"0.1"},
      {0.1, u"0.1"},
      {VariantCurrency{12345}, u"1.2345"},
      {VariantDate{36526.5}, u"36526.5"},
      {Text(u"5 \u20AC"), u"5 \u20AC"},
      {VariantObject{u"its text"}, u"its text"},
      {VariantError{2042}, u"Error 2042"},
      {true, u"True"},
      {false, u"False"},
      {VariantDecimal{{15, 0, 0}, 1, true}, u"-1.5"},
      {VariantUnknown(), u""},
      {std::uint8_t{255}, u"255"},
      {VariantArray{std::byte{65}}, u""},
  };
  for (const Shown& row : rows) {
    EXPECT_EQ(VariantText(row.value), row.text) << "kind " << row.value.index();
  }
}

TEST(VariantText, KeepsAsManyDigitsAsTheKindIsGoodFor) {
  EXPECT_EQ(VariantText(1.0f / 3), u"0.3333333");
  EXPECT_EQ(VariantText(1.0 / 3), u"0.333333333333333");
  EXPECT_EQ(VariantText(16777216.0f), u"16777220");
  EXPECT_EQ(VariantText(-2.5f), u"-2.5");
  EXPECT_EQ(VariantText(0.0f), u"0");
  EXPECT_EQ(VariantText(std::numeric_limits<float>::max()), u"340282300000000000000000000000000000000");
  EXPECT_EQ(VariantText(std::numeric_limits<float>::infinity()), u"0");
  EXPECT_EQ(VariantText(std::numeric_limits<double>::quiet_NaN()), u"0");
}

TEST(VariantText, ShowsAmountsExactly) {
  EXPECT_EQ(VariantText(VariantCurrency{0}), u"0");
  EXPECT_EQ(VariantText(VariantCurrency{1}), u"0.0001");
  EXPECT_EQ(VariantText(VariantCurrency{-1}), u"-0.0001");
  EXPECT_EQ(VariantText(VariantCurrency{10000}), u"1");
  EXPECT_EQ(VariantText(VariantCurrency{-1205000}), u"-120.5");
  EXPECT_EQ(VariantText(VariantCurrency{std::numeric_limits<std::int64_t>::max()}), u"922337203685477.5807");
  EXPECT_EQ(VariantText(VariantCurrency{std::numeric_limits<std::int64_t>::min()}), u"-922337203685477.5808");
}

TEST(VariantText, ShowsDecimalsExactly) {
  constexpr std::uint32_t kAll = 0xFFFFFFFF;
  EXPECT_EQ(VariantText(VariantDecimal()), u"0");
  EXPECT_EQ(VariantText(VariantDecimal{{0, 0, 0}, 28, true}), u"0");
  EXPECT_EQ(VariantText(VariantDecimal{{kAll, kAll, kAll}, 0, false}), u"79228162514264337593543950335");
  EXPECT_EQ(VariantText(VariantDecimal{{kAll, kAll, kAll}, 28, true}), u"-7.9228162514264337593543950335");
  EXPECT_EQ(VariantText(VariantDecimal{{0, 1, 0}, 0, false}), u"4294967296");
  EXPECT_EQ(VariantText(VariantDecimal{{1, 0, 0}, 28, false}), u"0.0000000000000000000000000001");
  EXPECT_EQ(VariantText(VariantDecimal{{1200, 0, 0}, 2, false}), u"12");
  EXPECT_EQ(VariantText(VariantDecimal{{1200, 0, 0}, 3, false}), u"1.2");
}

}  // namespace
}  // namespace pointalk
