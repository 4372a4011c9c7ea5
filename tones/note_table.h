// Which notes belong to which place of the screen.
#pragma once

#include <cstdint>

namespace pointalk {

inline constexpr int kFormats = 4;     // melody formats
inline constexpr int kGridCells = 20;  // columns, and rows

// How far the two tones of a cell lie above their lowest note, in semitones.
struct ToneOffsets {
  std::int32_t higher = 0;
  std::int32_t lower = 0;
};

class NoteTable {
 public:
  // Fills the whole table; before that all offsets are 0.
  void BuildNoteTables();

  // Column from the left, row from the bottom. Offsets are 0 outside the table.
  ToneOffsets At(std::int32_t column, std::int32_t row, std::int32_t format) const;

 private:
  ToneOffsets mNoteTable[kGridCells][kGridCells][kFormats] = {};
};

}  // namespace pointalk
