// Short messages made audible through FluidSynth.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

namespace pointalk::wine {

// The command of FluidSynth's shell for a short message. Data bytes keep their low seven bits, as a device
// sees them. No value for a message without a status byte (the value 0 among them) and for those that
// FluidSynth's shell has no command for.
std::optional<std::string> ShellCommand(std::uint32_t message);

// FluidSynth is started by the first Begin and stays until the process ends, so that a port that is closed
// and opened again sounds at once. A thread feeds it: no caller ever waits.
class Player {
 public:
  // The one of the process; it is never destroyed.
  static Player& Only();

  void Begin();
  void Play(std::uint32_t message);
  // Every note of every channel ends.
  void Silence();

 private:
  Player() = default;
  void Queue(const std::string& line);
  void Feed();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::string lines_;  // waiting to be sent
  bool begun_ = false;
};

}  // namespace pointalk::wine
