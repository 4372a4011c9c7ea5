// From a place on the screen to a cell, and from a note to its velocity.
#include "tones/position_tones.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "tests/tones/written_midi.h"

namespace pointalk {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PositionTonesTest : public ::testing::Test, protected PortOnWrittenMidi {
 protected:
  PositionTonesTest() {
    EXPECT_TRUE(port.Open());
    positionTones.BuildNoteTables();
    positionTones.Use({.mVerticalVolume = 30, .mHorizontalVolume = 40});
  }

  PositionTones positionTones{port};
};

TEST_F(PositionTonesTest, PlayColumnsFromTheLeftAndRowsFromTheBottom) {
  positionTones.Play({0, 768}, {1024, 768});
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0xCEu, 0x32289Eu, 0xCDu, 0x284C9Du)) << "notes 40 and 76";
  positionTones.Play({1023, 0}, {1024, 768});
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x32288Eu, 0xCEu, 0x323B9Eu, 0u, 0x284C8Du, 0xCDu, 0x285F9Du))
      << "notes 59 and 95";
}

TEST_F(PositionTonesTest, PlayOneToneInTheOneToneFormats) {
  for (const std::int32_t format : {2, 3}) {
    ToneSettings changed = positionTones.Settings();
    changed.mMelodyFormat = format;
    positionTones.Use(changed);
    positionTones.Play({0, format == 2 ? 0 : 768}, {1024, 768});
    for (const std::uint32_t message : midi.TakeSent()) EXPECT_EQ(message & 0xFU, message == 0 ? 0u : 14u);
  }
}

TEST_F(PositionTonesTest, PlayNothingWhileThePortIsClosed) {
  port.CloseMidiOut();
  positionTones.Play({0, 768}, {1024, 768});
  EXPECT_THAT(midi.sent, IsEmpty());
  EXPECT_TRUE(port.Open());
  positionTones.Play({0, 768}, {1024, 768});
  EXPECT_EQ(midi.sent.size(), 4u) << "the notes were not taken for played";
}

TEST_F(PositionTonesTest, PlayTheFirstCellOfAScreenOfUnknownSize) {
  positionTones.Play({500, 500}, {});
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0xCEu, 0x32289Eu, 0xCDu, 0x284C9Du));
}

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
