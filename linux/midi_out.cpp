#include "linux/midi_out.h"

#include <utility>

namespace pointalk::linux {
namespace {

constexpr MidiHandle kPort = 1;

// Numbers of errors that the platform has elsewhere.
constexpr std::uint32_t kAlreadyOpen = 4;
constexpr std::uint32_t kNoDriver = 6;

}  // namespace

MidiOpening LinuxMidiOut::OpenMapper() {
  if (isOpen_) return {kAlreadyOpen, 0};
  const Synthesizer::State state = synthesizer_.Open();
  if (state == Synthesizer::State::kNoSoundFont && !std::exchange(isFontMissed_, true)) {
    notices_.Show(
        u"Pointalk has no tones, because there is no sound font. Please install the package "
        u"timgm6mb-soundfont.");
  }
  isOpen_ = state == Synthesizer::State::kWorks;
  return isOpen_ ? MidiOpening{0, kPort} : MidiOpening{kNoDriver, 0};
}

bool LinuxMidiOut::Send(MidiHandle port, std::uint32_t message) {
  return isOpen_ && port == kPort && synthesizer_.Send(message);
}

bool LinuxMidiOut::Close(MidiHandle port) {
  if (!isOpen_ || port != kPort) return false;
  synthesizer_.Close();
  isOpen_ = false;
  return true;
}

}  // namespace pointalk::linux
