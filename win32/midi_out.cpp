#include "win32/midi_out.h"

#include <windows.h>

#include <mmsystem.h>

#include "win32/ansi.h"

namespace pointalk::win32 {
namespace {

HMIDIOUT ToPort(std::uintptr_t handle) { return reinterpret_cast<HMIDIOUT>(handle); }

MidiOpening Open() {
  HMIDIOUT port = nullptr;
  const MMRESULT result = midiOutOpen(&port, MIDI_MAPPER, 0, 0, CALLBACK_NULL);
  return {result, reinterpret_cast<std::uintptr_t>(port)};
}

}  // namespace

std::uint32_t WinMidiOut::DeviceCount() { return midiOutGetNumDevs(); }

MidiOpening WinMidiOut::OpenMapper() {
  const MidiOpening opening = Open();
  if (opening.result == MMSYSERR_NOERROR) {
    given_ = opening.handle;
    current_ = static_cast<std::uintptr_t>(opening.handle);
    state_ = {};
  }
  return opening;
}

bool WinMidiOut::Send(MidiHandle port, std::uint32_t message) {
  MMRESULT result = midiOutShortMsg(ToPort(Current(port)), message);
  if (port != given_ || given_ == 0) return result == MMSYSERR_NOERROR;
  if (state_.IsLost(result, std::chrono::steady_clock::now())) {
    Reopen();
    if (current_ != 0) result = midiOutShortMsg(ToPort(current_), message);
  }
  state_.Sent(message, result == MMSYSERR_NOERROR);
  return result == MMSYSERR_NOERROR;
}

bool WinMidiOut::Close(MidiHandle port) {
  const MMRESULT result = midiOutClose(ToPort(Current(port)));
  if (port == given_) given_ = 0, current_ = 0;
  return result == MMSYSERR_NOERROR;
}

bool WinMidiOut::PlayNamedSound(TextView name, std::uint32_t module, std::uint32_t flags) {
  const auto handle = reinterpret_cast<HMODULE>(static_cast<std::uintptr_t>(module));
  return PlaySoundA(Narrow(name).c_str(), handle, flags) != FALSE;
}

bool WinMidiOut::FollowDevices() {
  if (given_ == 0) return true;
  if (state_.NoteSounds()) return false;
  Reopen();
  return true;
}

std::uintptr_t WinMidiOut::Current(MidiHandle port) const {
  return port == given_ ? current_ : static_cast<std::uintptr_t>(port);
}

void WinMidiOut::Reopen() {
  state_.Reopened(std::chrono::steady_clock::now());
  ++reopenings_;
  if (current_ != 0) midiOutClose(ToPort(current_));  // where the device is gone this fails
  current_ = static_cast<std::uintptr_t>(Open().handle);
}

}  // namespace pointalk::win32
