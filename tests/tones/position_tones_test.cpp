// From a place on the screen to a cell, and from a note to its velocity.
#include "tones/position_tones.h"

#include <gtest/gtest.h>

#include <limits>

namespace pointalk {
namespace {

TEST(GridIndex, CutsAnExtentIntoTwentyCells) {
  constexpr struct {
    double distance, extent;
    std::int32_t cell;
  } kRows[] = {
      {0, 1024, 0},   {56, 1024, 0},   {57, 1024, 1},   {350, 1024, 6},   {512, 1024, 9},
      {517, 1024, 9}, {518, 1024, 10}, {977, 1024, 18}, {978, 1024, 19},  {1023, 1024, 19},
      {768, 768, 19}, {1, 768, 0},     {458, 768, 11},  {1919, 1920, 19}, {0, 1, 0},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(GridIndex(row.distance, row.extent), row.cell) << row.distance << " of " << row.extent;
  }
}

TEST(GridIndex, LeavesTheGridBeyondTheEdges) {
  EXPECT_EQ(GridIndex(1024, 1024), 19);
  EXPECT_EQ(GridIndex(1030, 1024), 20);
  EXPECT_EQ(GridIndex(1100, 1024), 21);
  EXPECT_EQ(GridIndex(-46, 1024), 0) << "the integer part goes toward zero";
  EXPECT_EQ(GridIndex(-47, 1024), -1);
  EXPECT_LT(GridIndex(-2147483648.0, 1), 0);
  EXPECT_GT(GridIndex(2147483647.0, 1), 20);
}

TEST(GridIndex, OfAScreenOfUnknownSizeIsZero) { EXPECT_EQ(GridIndex(300, 0), 0); }

TEST(ToneVelocity, FallsWithTheScalingOfThePitch) {
  constexpr struct {
    const char* what;
    double base;
    float scaling;
    std::int32_t offset, velocity;
  } kRows[] = {
      {"52.5, a half to even", 100, 0.5F, 19, 52},
      {"7.5, a half to even", 10, 0.5F, 1, 8},
      {"2.5, a half to even", 10, 0.5F, 3, 2},
      {"below the range", 100, 2, 19, 0},
      {"rounded", 70, 0.25F, 6, 62},
      {"no scaling", 80, 0, 19, 80},
      {"above the range", 500, 0, 0, 127},
      {"a negative volume", -3, 0, 0, 0},
      {"the offset of a tone that never sounds", 20, 0.5F, -1, 22},
      {"a foreign file's scaling", 0, -1, 10, 50},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(ToneVelocity(row.base, row.scaling, row.offset), row.velocity) << row.what;
  }
}

TEST(ToneVelocity, StaysInRangeForAnyScaling) {
  constexpr float kLargest = std::numeric_limits<float>::max();
  EXPECT_EQ(ToneVelocity(2147483647, kLargest, 59), 0);
  EXPECT_EQ(ToneVelocity(-2147483648.0, -kLargest, 59), 127);
}

}  // namespace
}  // namespace pointalk
