// What is known of the open MIDI port: the notes that sound on it, and when it was last opened anew.
#pragma once

#include <array>
#include <bitset>
#include <chrono>
#include <cstdint>
#include <optional>

namespace pointalk::win32 {

// The status of a message that begins a note, without its channel.
inline constexpr std::uint32_t kNoteOn = 0x90;

class PortState {
 public:
  using Time = std::chrono::steady_clock::time_point;

  // A message went out, and the port took or refused it. A note whose end was refused counts as silent: its
  // end is not sent again.
  void Sent(std::uint32_t message, bool taken);

  bool NoteSounds() const;

  // Whether a message that was refused with this error of the system's is a reason to open the port anew: its
  // device or driver is gone, and no second has passed since the last time.
  bool IsLost(std::uint32_t error, Time now) const;

  // The port was opened anew, or could not be; no note sounds.
  void Reopened(Time now);

 private:
  std::array<std::bitset<128>, 16> sounding_;  // by channel and note
  std::optional<Time> lastReopened_;
};

}  // namespace pointalk::win32
