// The synthesizer that sounds the tones, inside this program.
#pragma once

#include <fluidsynth.h>

#include <chrono>
#include <cstdint>
#include <memory>

#include "linux/owned.h"

namespace pointalk::linux {

class Synthesizer {
 public:
  enum class State { kWorks, kNoSoundFont, kNoDevice };

  Synthesizer();
  ~Synthesizer();
  Synthesizer(const Synthesizer&) = delete;
  Synthesizer& operator=(const Synthesizer&) = delete;

  // Opens the sound device; waits for that some seconds at most.
  State Open();

  // Ends every note. The sound device is let go.
  void Close();

  // A short MIDI message; bits that a data byte does not have are left out. False when it is refused.
  bool Send(std::uint32_t message);

 private:
  struct Sound;  // what the thread that opens the device and lets it sleep shares with us

  std::shared_ptr<Sound> sound_;
};

}  // namespace pointalk::linux
