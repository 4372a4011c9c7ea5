// The two tones that tell where the pointer is.
#pragma once

#include <cstdint>

#include "platform/types.h"
#include "tones/midi_port.h"
#include "tones/note_table.h"
#include "tones/tone_settings.h"

namespace pointalk {

// The screen in pixels; 0 by 0 while its size is not known.
struct ScreenPixels {
  double width = 0;
  double height = 0;
};

class PositionTones {
 public:
  explicit PositionTones(MidiPort& midiPort) : midiPort_(midiPort) {}

  void BuildNoteTables() { table_.BuildNoteTables(); }

  // The settings are read, changed and given back as one value.
  const ToneSettings& Settings() const { return settings_; }
  void Use(const ToneSettings& settings) { settings_ = settings; }

  // Plays the notes of the pointer's place, given in screen pixels; what sounds already goes on sounding.
  // Sends no message while the port is closed.
  void Play(Point pointer, ScreenPixels screen);

 private:
  MidiPort& midiPort_;
  NoteTable table_;
  ToneSettings settings_;

  void PlayCell(std::int32_t column, std::int32_t row);
};

// The column or row of a grid of 20 that a distance from the edge lies in: 20 and more beyond the other edge,
// 0 or less in front of the first one, and 0 for an extent of 0.
std::int32_t GridIndex(double distance, double extent);

// A velocity of 0 to 127: the base less what the scaling takes for a note's offset.
std::int32_t ToneVelocity(double base, float scaling, std::int32_t offset);

}  // namespace pointalk
