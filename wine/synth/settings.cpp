#include "wine/synth/settings.h"

#include <windows.h>

#include <optional>
#include <string>

namespace pointalk::wine {

namespace {

// The whole numbers in a list with anything between them; empty when the variable is not set.
std::vector<unsigned> Numbers(const char* variable) {
  char value[256];
  const DWORD length = GetEnvironmentVariableA(variable, value, sizeof value);
  std::vector<unsigned> numbers;
  bool inside = false;
  for (DWORD i = 0; i < length && length < sizeof value; ++i) {
    const bool digit = value[i] >= '0' && value[i] <= '9';
    if (digit && !inside) numbers.push_back(0);
    if (digit) numbers.back() = numbers.back() * 10 + static_cast<unsigned>(value[i] - '0');
    inside = digit;
  }
  return numbers;
}

SynthSettings ReadSettings() {
  SynthSettings settings;
  settings.openResults = Numbers("POINTALK_MIDI_OPEN");
  if (const auto devices = Numbers("POINTALK_MIDI_DEVICES"); !devices.empty()) settings.devices = devices[0];
  if (const auto lose = Numbers("POINTALK_MIDI_LOSE"); lose.size() == 3) {
    settings.taken = lose[0];
    settings.refusal = lose[1];
    settings.losingPorts = lose[2];
  }
  if (const auto delay = Numbers("POINTALK_MIDI_DELAY"); !delay.empty())
    settings.delayMilliseconds = delay[0];
  return settings;
}

}  // namespace

const SynthSettings& Settings() {
  static const auto& settings = *new SynthSettings(ReadSettings());
  return settings;
}

}  // namespace pointalk::wine
