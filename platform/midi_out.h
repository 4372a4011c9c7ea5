// Seam: the MIDI output port and the platform's own sounds.
#pragma once

#include <cstdint>

#include "text/text.h"

namespace pointalk {

using MidiHandle = std::uint64_t;

struct MidiOpening {
  std::uint32_t result = 0;  // 0 when the port is open, else the platform's error number
  MidiHandle handle = 0;     // of the open port
};

class MidiOut {
 public:
  virtual ~MidiOut() = default;

  // Number of MIDI output devices; 0 on failure.
  virtual std::uint32_t DeviceCount() = 0;

  // Opens the system's MIDI mapper, with no callback. Sends no message.
  virtual MidiOpening OpenMapper() = 0;

  // Sends a short message: status in bits 0 to 7, data in bits 8 to 15 and 16 to 23. False when the port is
  // not open or refuses.
  [[nodiscard]] virtual bool Send(MidiHandle port, std::uint32_t message) = 0;

  [[nodiscard]] virtual bool Close(MidiHandle port) = 0;

  // Plays a sound of the system by name, out of a module, with the platform's flags; what it played before
  // stops.
  [[nodiscard]] virtual bool PlayNamedSound(TextView name, std::uint32_t module, std::uint32_t flags) = 0;
};

}  // namespace pointalk
