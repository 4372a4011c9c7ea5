// Which type a variant is written as, and what its data look like.
#include "registry/registry_value.h"

#include <gtest/gtest.h>

#include <limits>

#include "sim/code_page.h"
#include "tests/registry/registry_bytes.h"

namespace pointalk {
namespace {

using testing::Bytes;
using testing::BytesOf;

struct Chosen {
  Variant value;
  std::uint32_t type;
};

TEST(TypeForVariant, GoesByTheKind) {
  const Chosen rows[] = {
      {VariantEmpty(), 1},
      {VariantNull(), 1},
      {std::int16_t{5}, 4},
      {std::int32_t{5}, 4},
      {5.0f, 1},
      {5.0, 1},
      {VariantCurrency{}, 1},
      {VariantDate{}, 1},
      {Text(u"5"), 1},
      {VariantObject{}, 1},
      {VariantError{5}, 1},
      {true, 4},
      {VariantDecimal{}, 1},
      {VariantUnknown(), 1},
      {std::uint8_t{5}, 3},
      {VariantArray(), 3},
      {VariantArray(8), 3},
  };
  for (const Chosen& row : rows) EXPECT_EQ(TypeForVariant(row.value), row.type) << row.value.index();
}

struct Written {
  Variant value;
  Bytes data;
};

void ExpectData(const std::vector<Written>& rows, std::uint32_t type) {
  sim::SimAnsi ansi;
  for (const Written& row : rows) {
    RegistryError error;
    EXPECT_EQ(DataFromVariant(row.value, type, ansi, error), row.data)
        << "kind " << row.value.index() << " as " << type;
    EXPECT_EQ(error, RegistryError()) << "kind " << row.value.index() << " as " << type;
  }
}

void ExpectMismatch(const std::vector<Variant>& values, std::uint32_t type) {
  sim::SimAnsi ansi;
  for (const Variant& value : values) {
    RegistryError error;
    EXPECT_EQ(DataFromVariant(value, type, ansi, error), std::nullopt) << value.index() << " as " << type;
    EXPECT_EQ(error.number, -2147221501) << "kind " << value.index() << " as " << type;
  }
}

TEST(DataFromVariant, WritesStringsInTheCodePageWithAnEndingNul) {
  ExpectData(
      {{Text(u"Pointalk.exe"), BytesOf({'P', 'o', 'i', 'n', 't', 'a', 'l', 'k', '.', 'e', 'x', 'e', 0})},
       {Text(), BytesOf({0})},
       {Text(u"\u20AC\u00E9\u0416"), BytesOf({0x80, 0xE9, '?', 0})},
       {Text(u"a\0b", 3), BytesOf({'a', 0, 'b', 0})},
       {VariantEmpty(), BytesOf({0})},
       {VariantNull(), BytesOf({0})},
       {VariantUnknown(), BytesOf({0})},
       {VariantObject{u"x"}, BytesOf({'x', 0})},
       {std::int16_t{-7}, BytesOf({'-', '7', 0})},
       {1.5, BytesOf({'1', '.', '5', 0})},
       {std::uint8_t{10}, BytesOf({'1', '0', 0})}},
      1);
  ExpectMismatch({VariantArray(), VariantArray(4)}, 1);
}

TEST(DataFromVariant, WritesNumbersAsFourBytesLeastSignificantFirst) {
  ExpectData({{std::int16_t{5}, BytesOf({5, 0, 0, 0})},
              {std::int16_t{-2}, BytesOf({0xFE, 0xFF, 0xFF, 0xFF})},
              {std::int32_t{0x12345678}, BytesOf({0x78, 0x56, 0x34, 0x12})},
              {std::numeric_limits<std::int32_t>::min(), BytesOf({0, 0, 0, 0x80})},
              {true, BytesOf({0xFF, 0xFF, 0xFF, 0xFF})},
              {false, BytesOf({0, 0, 0, 0})},
              {std::uint8_t{200}, BytesOf({200, 0, 0, 0})},
              {256.0f, BytesOf({0, 1, 0, 0})},
              {4294967295.0, BytesOf({0xFF, 0xFF, 0xFF, 0xFF})},
              {-2147483648.0, BytesOf({0, 0, 0, 0x80})},
              {VariantDate{2}, BytesOf({2, 0, 0, 0})},
              {VariantCurrency{-30000}, BytesOf({0xFD, 0xFF, 0xFF, 0xFF})},
              {VariantDecimal{{70, 0, 0}, 1, false}, BytesOf({7, 0, 0, 0})}},
             4);
  ExpectMismatch(
      {VariantEmpty(), VariantNull(), VariantObject{u"5"}, VariantUnknown(), VariantError{5}, Text(u"5"),
       VariantArray(4), 5.5f, 5.5, 4294967296.0, -2147483649.0, std::numeric_limits<double>::quiet_NaN(),
       std::numeric_limits<double>::infinity(), VariantDate{0.25}, VariantCurrency{1},
       VariantDecimal{{15, 0, 0}, 1, false}, VariantDecimal{{0, 1, 0}, 0, false}},
      4);
}

TEST(DataFromVariant, WritesBinaryAsTheValuesOwnBytes) {
  ExpectData(
      {{VariantArray(), {}},
       {BytesOf({0, 255, 7}), BytesOf({0, 255, 7})},
       {std::uint8_t{9}, BytesOf({9})},
       {std::int16_t{-2}, BytesOf({0xFE, 0xFF})},
       {std::int32_t{1}, BytesOf({1, 0, 0, 0})},
       {true, BytesOf({0xFF, 0xFF})},
       {1.0f, BytesOf({0, 0, 0x80, 0x3F})},
       {1.0, BytesOf({0, 0, 0, 0, 0, 0, 0xF0, 0x3F})},
       {VariantDate{1}, BytesOf({0, 0, 0, 0, 0, 0, 0xF0, 0x3F})},
       {VariantCurrency{-1}, Bytes(8, std::byte{0xFF})},
       {VariantError{258}, BytesOf({2, 1, 0, 0})},
       {Text(u"A\u20AC"), BytesOf({'A', 0x80})},
       {VariantDecimal{{1, 2, 3}, 4, true}, BytesOf({0, 0, 4, 0x80, 3, 0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0})}},
      3);
  ExpectMismatch({VariantEmpty(), VariantNull(), VariantObject{u"x"}, VariantUnknown()}, 3);
}

TEST(DataFromVariant, RefusesOtherTypes) {
  sim::SimAnsi ansi;
  for (const std::uint32_t type : {0u, 2u, 5u, 7u, 11u, 0xFFFFFFFFu}) {
    RegistryError error;
    EXPECT_EQ(DataFromVariant(Text(u"x"), type, ansi, error), std::nullopt) << type;
    EXPECT_EQ(error.number, -2147221500) << type;
  }
}

}  // namespace
}  // namespace pointalk
