// Numbers through their hexadecimal texts.
#include "registry/hexadecimal.h"

#include <gtest/gtest.h>

#include <limits>

namespace pointalk {
namespace {

TEST(Hexadecimal, IsWrittenWithAPrefix) {
  EXPECT_EQ(HexadecimalText(0), u"&H0");
  EXPECT_EQ(HexadecimalText(10), u"&HA");
  EXPECT_EQ(HexadecimalText(40000), u"&H9C40");
  EXPECT_EQ(HexadecimalText(-1), u"&HFFFFFFFF");
  EXPECT_EQ(HexadecimalText(std::numeric_limits<std::int32_t>::min()), u"&H80000000");
}

struct Read {
  TextView text;
  std::optional<std::int16_t> number;
};

TEST(Hexadecimal, IsReadAsASignedNumberOf16Bits) {
  constexpr Read kRows[] = {
      {u"&H0", 0},
      {u"&H7FFF", 32767},
      {u"&H8000", -32768},
      {u"&HFFFF", -1},
      {u"&Hffff", -1},
      {u"&H00007FFF", 32767},
      {u"&HFFFF8000", -32768},
      {u"&H0000FFFF", std::nullopt},
      {u"&H10000", std::nullopt},
      {u"&HFFFF7FFF", std::nullopt},
      {u"&H100000000", std::nullopt},
      {u"&H", std::nullopt},
      {u"&HG", std::nullopt},
      {u"&H-1", std::nullopt},
      {u"12", std::nullopt},
      {u"", std::nullopt},
  };
  for (const Read& row : kRows)
    EXPECT_EQ(ReadHexadecimal(row.text), row.number) << ::testing::PrintToString(row.text);
}

struct Word {
  std::int32_t number;
  std::optional<std::int16_t> word;
};

TEST(Hexadecimal, TurnsNumbersInto16Bits) {
  constexpr Word kRows[] = {
      {0, 0},
      {5, 5},
      {32767, 32767},
      {32768, -32768},
      {40000, -25536},
      {65535, -1},
      {65536, std::nullopt},
      {-1, -1},
      {-32768, -32768},
      {-32769, std::nullopt},
      {std::numeric_limits<std::int32_t>::max(), std::nullopt},
      {std::numeric_limits<std::int32_t>::min(), std::nullopt},
  };
  for (const Word& row : kRows) {
    EXPECT_EQ(WordFromWhole(row.number), row.word) << row.number;
    EXPECT_EQ(WordFromNumber(row.number), row.word) << row.number;
  }
}

TEST(Hexadecimal, RoundsFractionsHalvesToEven) {
  EXPECT_EQ(WordFromNumber(2.5), 2);
  EXPECT_EQ(WordFromNumber(3.5), 4);
  EXPECT_EQ(WordFromNumber(-0.6), -1);
  EXPECT_EQ(WordFromNumber(65535.4), -1);
  EXPECT_EQ(WordFromNumber(1e300), std::nullopt);
  EXPECT_EQ(WordFromNumber(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

}  // namespace
}  // namespace pointalk
