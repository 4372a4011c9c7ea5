#include "sim/midi_out.h"

#include "sim/code_page.h"

namespace pointalk::sim {

MidiOpening SimMidiOut::OpenMapper() {
  constexpr MidiHandle kPort = 0x5001;
  const auto& results = machine_.setup.midiOpenResults;
  const std::uint32_t result = opened_ < results.size() ? results[opened_] : 0;
  ++opened_;
  machine_.Record("midi open", result);
  if (result != 0) return {result, 0};
  open_ = true;
  return {0, kPort};
}

// There is one port, so the handle is not looked at.
bool SimMidiOut::Send(MidiHandle, std::uint32_t message) {
  if (open_) machine_.Record("midi", Hexadecimal{message});
  return open_;
}

bool SimMidiOut::Close(MidiHandle) {
  machine_.Record("midi close");
  open_ = false;
  return true;
}

bool SimMidiOut::PlayNamedSound(TextView name, std::uint32_t module, std::uint32_t flags) {
  machine_.Record("sound", ThroughAnsi(name), module, flags);
  return true;
}

}  // namespace pointalk::sim
