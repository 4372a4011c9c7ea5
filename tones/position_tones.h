// The two tones that tell where the pointer is.
#pragma once

#include <cstdint>

#include "platform/types.h"
#include "tones/midi_port.h"
#include "tones/note_table.h"
#include "tones/tone_settings.h"

namespace pointalk {

class PositionTones {
 public:
  PositionTones(const ToneSettings& theSettings, MidiPort& thePort) : settings(theSettings), port(thePort) {}

  void BuildNoteTables() { table.BuildNoteTables(); }

  // Plays the notes of a cell; what sounds already goes on sounding. Does nothing while the port is closed.
  void PlayCell(std::int32_t column, std::int32_t row);

 private:
  const ToneSettings& settings;
  MidiPort& port;
  NoteTable table;
};

// The column or row of a grid of 20 that a distance from the edge lies in; 20 and more beyond the other edge.
// Nothing sensible for an extent of 0, which gives 0.
std::int32_t GridIndex(double distance, double extent);

// A velocity of 0 to 127: the base less what the scaling takes for a note's offset.
std::int32_t ToneVelocity(double base, float scaling, std::int32_t offset);

}  // namespace pointalk
