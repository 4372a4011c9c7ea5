#include "win32/port_state.h"

#include <windows.h>

#include <mmsystem.h>

#include <algorithm>

namespace pointalk::win32 {
namespace {

constexpr std::uint32_t kNoteOff = 0x80;
constexpr std::uint32_t kNoteOn = 0x90;
constexpr std::chrono::seconds kBetweenReopenings{1};  // opening may take long, and the tick waits for it

}  // namespace

void PortState::Took(std::uint32_t message) {
  const std::uint32_t status = message & 0xF0;
  if (status != kNoteOff && status != kNoteOn) return;
  const std::uint32_t velocity = message >> 16 & 0x7F;
  sounding_.at(message & 0x0F).set(message >> 8 & 0x7F, status == kNoteOn && velocity != 0);
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
