// What each of the 16 MIDI channels plays and is to play next.
#pragma once

#include <array>
#include <cstdint>

namespace pointalk {

inline constexpr int kChannels = 16;
inline constexpr int kEventChannel = 12;       // event sounds
inline constexpr int kSpareEventChannel = 11;  // only ever stopped
inline constexpr int kHigherToneChannel = 13;  // the horizontal tone
inline constexpr int kLowerToneChannel = 14;   // the vertical tone

// Indexed by channel. Values are not limited to what MIDI knows; they go into the messages as they stand.
struct ChannelState {
  std::array<std::int32_t, kChannels> mChannelProgram{};  // instrument, from 0
  std::array<bool, kChannels> noteOn{};
  std::array<std::int32_t, kChannels> noteNumber{};    // the note last started
  std::array<std::int32_t, kChannels> noteTarget{};    // the note that the next start is to play
  std::array<std::int32_t, kChannels> noteVelocity{};  // of the next start and of the next stop
};

// Short messages, composed as numbers: a value that MIDI does not know spills into the bits above it.
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
