// A winmm.dll to be put beside Pointalk.exe and loaded instead of Wine's (WINEDLLOVERRIDES=winmm=n,b): the
// functions that Pointalk imports, and those that others of its kind do. Short messages sound through
// FluidSynth where the machine has sound. Every call is written down with its exact arguments where
// POINTALK_HEARD says so.
// The declarations below are this library's own, not imports.
#define _WINMM_  // NOLINT(readability-identifier-naming): the system's headers look for it
#include <windows.h>

#include <mmsystem.h>

#include <atomic>
#include <map>
#include <mutex>

#include "wine/heard/heard.h"
#include "wine/synth/player.h"
#include "wine/synth/settings.h"

namespace pointalk::wine {

namespace {

struct Ports {
  static Ports& Only() {
    static Ports& ports = *new Ports;
    return ports;
  }

  std::mutex mutex;
  std::map<std::uintptr_t, unsigned> open;  // by handle, how many messages it was sent
  std::uintptr_t lastHandle = 0;            // they count from 1
  std::size_t openCalls = 0;
  DWORD volume = 0xFFFFFFFF;
};

std::int64_t Signed(UINT device) { return static_cast<INT>(device); }

std::int64_t Number(std::uintptr_t value) { return static_cast<std::int64_t>(value); }

MMRESULT ResultOfOpen(std::size_t call, UINT device) {
  const SynthSettings& settings = Settings();
  if (call < settings.openResults.size()) return settings.openResults[call];
  const bool exists = device == MIDI_MAPPER ? settings.devices > 0 : device < settings.devices;
  return exists ? MMSYSERR_NOERROR : MIDIERR_NODEVICE;
}

bool IsOpen(HMIDIOUT port) {
  Ports& ports = Ports::Only();
  const std::lock_guard lock(ports.mutex);
  return ports.open.count(reinterpret_cast<std::uintptr_t>(port)) != 0;
}

MMRESULT OpenOr(HMIDIOUT port) { return IsOpen(port) ? MMSYSERR_NOERROR : MMSYSERR_INVALHANDLE; }

MMRESULT ResultOfMessage(HMIDIOUT port) {
  Ports& ports = Ports::Only();
  const std::lock_guard lock(ports.mutex);
  const auto open = ports.open.find(reinterpret_cast<std::uintptr_t>(port));
  if (open == ports.open.end()) return MMSYSERR_INVALHANDLE;
  const SynthSettings& settings = Settings();
  const bool lost = open->first <= settings.losingPorts && open->second++ >= settings.taken;
  return lost ? settings.refusal : MMSYSERR_NOERROR;
}

// A name below 0x10000, and any name with one of these flags, is a number and no text.
bool IsText(const void* name, DWORD flags) {
  const bool number = (flags & SND_RESOURCE) == SND_RESOURCE || (flags & SND_ALIAS_ID) == SND_ALIAS_ID ||
                      (flags & SND_MEMORY) == SND_MEMORY;
  return !number && reinterpret_cast<std::uintptr_t>(name) > 0xFFFF;
}

// Only written down: no sound of Pointalk's comes this way.
BOOL HearSound(HeardLine& line, HMODULE module, DWORD flags) {
  line.Number("module", Number(reinterpret_cast<std::uintptr_t>(module))).Number("flags", flags).Write();
  return TRUE;
}

template <class Caps> MMRESULT FillCaps(UINT_PTR device, Caps* caps, UINT size, const Caps& full) {
  HeardLine("midi caps").Number("device", Signed(static_cast<UINT>(device))).Write();
  const bool exists = static_cast<UINT>(device) == MIDI_MAPPER || device < Settings().devices;
  if (!exists || Settings().devices == 0) return MMSYSERR_BADDEVICEID;
  if (!caps) return MMSYSERR_INVALPARAM;
  memcpy(caps, &full, size < sizeof full ? size : sizeof full);
  return MMSYSERR_NOERROR;
}

template <class Caps> Caps SynthesizerCaps() {
  Caps caps{};
  caps.vDriverVersion = 0x0100;
  caps.wTechnology = MOD_SYNTH;
  caps.wVoices = 256;
  caps.wNotes = 256;
  caps.wChannelMask = 0xFFFF;
  return caps;
}

}  // namespace

}  // namespace pointalk::wine

using namespace pointalk::wine;

// The system's headers name the parameters otherwise.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

UINT WINAPI midiOutGetNumDevs() {
  HeardLine("midi devices").Number("count", Settings().devices).Write();
  return Settings().devices;
}

MMRESULT WINAPI midiOutOpen(HMIDIOUT* port, UINT device, DWORD_PTR callback, DWORD_PTR instance,
                            DWORD flags) {
  HeardLine line("midi open");
  Ports& ports = Ports::Only();
  std::unique_lock lock(ports.mutex);
  MMRESULT result = ResultOfOpen(ports.openCalls++, device);
  if (!port && result == MMSYSERR_NOERROR) result = MMSYSERR_INVALPARAM;
  if (result == MMSYSERR_NOERROR) {
    ports.open.emplace(++ports.lastHandle, 0);
    *port = reinterpret_cast<HMIDIOUT>(ports.lastHandle);
  }
  lock.unlock();
  line.Number("result", result).Number("device", Signed(device)).Number("callback", Number(callback));
  line.Number("instance", Number(instance)).Number("flags", flags).Write();
  if (result == MMSYSERR_NOERROR) Player::Only().Begin();
  return result;
}

MMRESULT WINAPI midiOutShortMsg(HMIDIOUT port, DWORD message) {
  HeardLine line("midi");
  const MMRESULT result = ResultOfMessage(port);
  line.Hex("value", message).Number("result", result).Write();
  if (Settings().delayMilliseconds > 0) Sleep(Settings().delayMilliseconds);
  if (result == MMSYSERR_NOERROR) Player::Only().Play(message);
  return result;
}

MMRESULT WINAPI midiOutReset(HMIDIOUT port) {
  const MMRESULT result = OpenOr(port);
  HeardLine("midi reset").Number("result", result).Write();
  if (result == MMSYSERR_NOERROR) Player::Only().Silence();
  return result;
}

MMRESULT WINAPI midiOutClose(HMIDIOUT port) {
  const MMRESULT result = OpenOr(port);
  HeardLine("midi close").Number("result", result).Write();
  if (result != MMSYSERR_NOERROR) return result;
  Ports& ports = Ports::Only();
  const std::lock_guard lock(ports.mutex);
  ports.open.erase(reinterpret_cast<std::uintptr_t>(port));
  if (ports.open.empty()) Player::Only().Silence();
  return result;
}

MMRESULT WINAPI midiOutGetDevCapsA(UINT_PTR device, LPMIDIOUTCAPSA caps, UINT size) {
  auto full = SynthesizerCaps<MIDIOUTCAPSA>();
  lstrcpynA(full.szPname, "FluidSynth", MAXPNAMELEN);
  return FillCaps(device, caps, size, full);
}

MMRESULT WINAPI midiOutGetDevCapsW(UINT_PTR device, LPMIDIOUTCAPSW caps, UINT size) {
  auto full = SynthesizerCaps<MIDIOUTCAPSW>();
  lstrcpynW(full.szPname, L"FluidSynth", MAXPNAMELEN);
  return FillCaps(device, caps, size, full);
}

// Kept and given back; the loudness of the notes themselves is what sounds.
MMRESULT WINAPI midiOutSetVolume(HMIDIOUT, DWORD volume) {
  HeardLine("midi volume").Ascii("how", "put").Hex("value", volume).Write();
  Ports& ports = Ports::Only();
  const std::lock_guard lock(ports.mutex);
  ports.volume = volume;
  return MMSYSERR_NOERROR;
}

MMRESULT WINAPI midiOutGetVolume(HMIDIOUT, LPDWORD volume) {
  if (!volume) return MMSYSERR_INVALPARAM;
  Ports& ports = Ports::Only();
  const std::lock_guard lock(ports.mutex);
  HeardLine("midi volume").Ascii("how", "get").Hex("value", ports.volume).Write();
  *volume = ports.volume;
  return MMSYSERR_NOERROR;
}

BOOL WINAPI PlaySoundA(LPCSTR name, HMODULE module, DWORD flags) {
  HeardLine line("sound");
  if (!IsText(name, flags)) {
    line.Number("name", Number(reinterpret_cast<std::uintptr_t>(name)));
  } else {
    wchar_t wide[MAX_PATH];
    const int units = MultiByteToWideChar(CP_ACP, 0, name, -1, wide, MAX_PATH);
    line.Text("name", units > 0 ? std::u16string(wide, wide + units - 1) : std::u16string());
  }
  return HearSound(line, module, flags);
}

BOOL WINAPI PlaySoundW(LPCWSTR name, HMODULE module, DWORD flags) {
  HeardLine line("sound");
  if (IsText(name, flags)) {
    line.Text("name", std::u16string(name, name + lstrlenW(name)));
  } else {
    line.Number("name", Number(reinterpret_cast<std::uintptr_t>(name)));
  }
  return HearSound(line, module, flags);
}

DWORD WINAPI timeGetTime() { return static_cast<DWORD>(Now() / 1000); }

// The clock of a Linux machine needs no telling.
MMRESULT WINAPI timeBeginPeriod(UINT period) {
  HeardLine("time period").Ascii("how", "begin").Number("milliseconds", period).Write();
  return TIMERR_NOERROR;
}

MMRESULT WINAPI timeEndPeriod(UINT period) {
  HeardLine("time period").Ascii("how", "end").Number("milliseconds", period).Write();
  return TIMERR_NOERROR;
}

}  // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
