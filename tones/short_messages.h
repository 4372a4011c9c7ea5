// MIDI's channels, as this program uses them, and its short messages.
#pragma once

#include <cstdint>

namespace pointalk {

inline constexpr int kChannels = 16;
inline constexpr int kEventChannel = 12;       // event sounds
inline constexpr int kSpareEventChannel = 11;  // only ever stopped
inline constexpr int kHigherToneChannel = 13;  // the horizontal tone
inline constexpr int kLowerToneChannel = 14;   // the vertical tone

// Composed as numbers: a value that MIDI does not know spills into the bits above it.
constexpr std::uint32_t ShortMessage(std::uint32_t status, int channel, std::int32_t data1,
                                     std::int32_t data2) {
  return status + static_cast<std::uint32_t>(channel) + static_cast<std::uint32_t>(data1) * 256U +
         static_cast<std::uint32_t>(data2) * 65536U;
}
constexpr std::uint32_t NoteOff(int channel, std::int32_t note, std::int32_t velocity) {
  return ShortMessage(128, channel, note, velocity);
}
constexpr std::uint32_t NoteOn(int channel, std::int32_t note, std::int32_t velocity) {
  return ShortMessage(144, channel, note, velocity);
}
constexpr std::uint32_t ProgramChange(int channel, std::int32_t instrument) {
  return ShortMessage(192, channel, instrument, 0);
}

}  // namespace pointalk
