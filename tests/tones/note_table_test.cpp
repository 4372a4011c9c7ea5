// The notes of every cell in every melody format.
#include "tones/note_table.h"

#include <gtest/gtest.h>

namespace pointalk {
namespace {

class NoteTableTest : public testing::Test {
 protected:
  NoteTableTest() { table.BuildNoteTables(); }

  NoteTable table;
};

TEST_F(NoteTableTest, TwoToneChromaticRisesASemitoneACell) {
  for (std::int32_t column = 0; column < 20; ++column) {
    for (std::int32_t row = 0; row < 20; ++row) {
      EXPECT_EQ(table.At(column, row, 0).higher, column);
      EXPECT_EQ(table.At(column, row, 0).lower, row);
    }
  }
}

TEST_F(NoteTableTest, TwoToneScalesTakeTwoCellsAStep) {
  constexpr std::int32_t kSteps[] = {0, 0, 2, 2, 4, 4, 5, 5, 7, 7, 9, 9, 11, 11, 12, 12, 14, 14, 16, 16};
  for (std::int32_t column = 0; column < 20; ++column) {
    for (std::int32_t row = 0; row < 20; ++row) {
      EXPECT_EQ(table.At(column, row, 1).higher, kSteps[column]);
      EXPECT_EQ(table.At(column, row, 1).lower, kSteps[row]);
    }
  }
}

TEST_F(NoteTableTest, OneToneFormatsHaveAnOctaveForFourRows) {
  constexpr std::int32_t kChromatic[] = {0, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7, 8, 8, 9, 9, 10, 11};
  constexpr std::int32_t kScale[] = {0, 0, 2, 2, 2, 4, 4, 4, 5, 5, 5, 7, 7, 7, 9, 9, 9, 11, 11, 11};
  constexpr std::int32_t kOctaves[] = {0,  0,  0,  0,  12, 12, 12, 12, 24, 24,
                                       24, 24, 36, 36, 36, 36, 48, 48, 48, 48};
  for (std::int32_t column = 0; column < 20; ++column) {
    for (std::int32_t row = 0; row < 20; ++row) {
      EXPECT_EQ(table.At(column, row, 2).higher, -1);
      EXPECT_EQ(table.At(column, row, 2).lower, kOctaves[row] + kChromatic[column]);
      EXPECT_EQ(table.At(column, row, 3).higher, -1);
      EXPECT_EQ(table.At(column, row, 3).lower, kOctaves[row] + kScale[column]);
    }
  }
}

TEST_F(NoteTableTest, HasZerosBeyondItsCellsAndFormats) {
  constexpr struct {
    std::int32_t column, row, format;
  } kOutside[] = {{20, 5, 0},        {5, 20, 0}, {20, 20, 2},        {21, 5, 1},
                  {-1, 5, 0},        {5, -1, 3}, {5, 5, 4},          {5, 5, 8},
                  {5, 5, 9},         {5, 5, -1}, {2147483647, 5, 0}, {5, -2147483647 - 1, 0},
                  {5, 5, 2147483647}};
  for (const auto& cell : kOutside) {
    SCOPED_TRACE(testing::Message() << cell.column << " " << cell.row << " " << cell.format);
    EXPECT_EQ(table.At(cell.column, cell.row, cell.format).higher, 0);
    EXPECT_EQ(table.At(cell.column, cell.row, cell.format).lower, 0);
  }
}

TEST(NoteTable, HasZerosBeforeItIsBuilt) {
  const NoteTable table;
  EXPECT_EQ(table.At(7, 7, 0).higher, 0);
  EXPECT_EQ(table.At(7, 7, 2).higher, 0);
}

}  // namespace
}  // namespace pointalk
