#include "win32/midi_out.h"

#include <windows.h>

#include <mmsystem.h>

#include "win32/ansi.h"

namespace pointalk::win32 {
namespace {

HMIDIOUT ToPort(MidiHandle port) { return reinterpret_cast<HMIDIOUT>(static_cast<std::uintptr_t>(port)); }

}  // namespace

std::uint32_t WinMidiOut::DeviceCount() { return midiOutGetNumDevs(); }

MidiOpening WinMidiOut::OpenMapper() {
  HMIDIOUT port = nullptr;
  const MMRESULT result = midiOutOpen(&port, MIDI_MAPPER, 0, 0, CALLBACK_NULL);
  return {result, reinterpret_cast<std::uintptr_t>(port)};
}

bool WinMidiOut::Send(MidiHandle port, std::uint32_t message) {
  return midiOutShortMsg(ToPort(port), message) == MMSYSERR_NOERROR;
}

bool WinMidiOut::Close(MidiHandle port) { return midiOutClose(ToPort(port)) == MMSYSERR_NOERROR; }

bool WinMidiOut::PlayNamedSound(TextView name, std::uint32_t module, std::uint32_t flags) {
  const auto handle = reinterpret_cast<HMODULE>(static_cast<std::uintptr_t>(module));
  return PlaySoundA(Narrow(name).c_str(), handle, flags) != FALSE;
}

}  // namespace pointalk::win32
