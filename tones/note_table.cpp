#include "tones/note_table.h"

#include <array>

namespace pointalk {
namespace {

using Steps = std::array<std::int32_t, kGridCells>;

// Two cells a step of the major scale; the other lists repeat their steps unevenly.
constexpr Steps kTwoToneScale = {0, 0, 2, 2, 4, 4, 5, 5, 7, 7, 9, 9, 11, 11, 12, 12, 14, 14, 16, 16};
constexpr Steps kOneToneChromatic = {0, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7, 8, 8, 9, 9, 10, 11};
constexpr Steps kOneToneScale = {0, 0, 2, 2, 2, 4, 4, 4, 5, 5, 5, 7, 7, 7, 9, 9, 9, 11, 11, 11};

constexpr std::int32_t kNeverSounded = -1;  // the higher tone of the one-tone formats
constexpr int kRowsOfAnOctave = 4;

}  // namespace

void NoteTable::BuildNoteTables() {
  for (std::int32_t column = 0; column < kGridCells; ++column) {
    for (std::int32_t row = 0; row < kGridCells; ++row) {
      const auto c = static_cast<std::size_t>(column);
      const auto r = static_cast<std::size_t>(row);
      const std::int32_t octave = 12 * (row / kRowsOfAnOctave);
      mNoteTable[c][r][0] = {column, row};
      mNoteTable[c][r][1] = {kTwoToneScale[c], kTwoToneScale[r]};
      mNoteTable[c][r][2] = {kNeverSounded, octave + kOneToneChromatic[c]};
      mNoteTable[c][r][3] = {kNeverSounded, octave + kOneToneScale[c]};
    }
  }
}

ToneOffsets NoteTable::At(std::int32_t column, std::int32_t row, std::int32_t format) const {
  if (column < 0 || column >= kGridCells || row < 0 || row >= kGridCells || format < 0 ||
      format >= kFormats) {
    return {};
  }
  return mNoteTable[column][row][format];
}

}  // namespace pointalk
