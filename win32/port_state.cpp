#include "win32/port_state.h"

#include <windows.h>

#include <mmsystem.h>

#include <algorithm>

namespace pointalk::win32 {
namespace {

constexpr std::uint32_t kNoteOff = 0x80;
constexpr std::chrono::seconds kBetweenReopenings{1};  // opening may take long, and the tick waits for it

}  // namespace

void PortState::Sent(std::uint32_t message, bool taken) {
  const std::uint32_t status = message & 0xF0;
  if (status != kNoteOff && status != kNoteOn) return;
  const std::uint32_t velocity = message >> 16 & 0x7F;
  const bool begins = status == kNoteOn && velocity != 0;
  if (begins && !taken) return;
  sounding_.at(message & 0x0F).set(message >> 8 & 0x7F, begins);
}

bool PortState::NoteSounds() const {
  return std::any_of(sounding_.begin(), sounding_.end(), [](const auto& notes) { return notes.any(); });
}

bool PortState::IsLost(std::uint32_t error, Time now) const {
  const bool gone = error == MMSYSERR_NODRIVER || error == MIDIERR_NODEVICE || error == MMSYSERR_INVALHANDLE;
  return gone && (!lastReopened_ || now - *lastReopened_ >= kBetweenReopenings);
}

void PortState::Reopened(Time now) {
  sounding_ = {};
  lastReopened_ = now;
}

}  // namespace pointalk::win32
