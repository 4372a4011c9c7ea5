// A client of the synthesizer for the tests: does what its arguments say, one after the other, and prints the
// result of each on a line of its own.
//   devices, open, caps, close, reset, time, short=HEXADECIMAL, sound=NAME, wide=NAME, sleep=MILLISECONDS,
//   until=FILE (is there, given up after 200 seconds)
#include <windows.h>

#include <mmsystem.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

HMIDIOUT port = nullptr;

unsigned long WaitFor(const std::string& path) {
  for (const ULONGLONG end = GetTickCount64() + 200'000; GetTickCount64() < end; Sleep(10))
    if (GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES) return 0;
  return 1;
}

unsigned long Do(const std::string& verb, const std::string& value) {
  if (verb == "devices") return midiOutGetNumDevs();
  if (verb == "open") return midiOutOpen(&port, MIDI_MAPPER, 0, 0, 0);
  if (verb == "close") return midiOutClose(port);
  if (verb == "reset") return midiOutReset(port);
  if (verb == "time") return timeGetTime();
  if (verb == "short") return midiOutShortMsg(port, std::stoul(value, nullptr, 16));
  if (verb == "sound")
    return static_cast<unsigned long>(PlaySoundA(value.c_str(), reinterpret_cast<HMODULE>(1), 11));
  if (verb == "wide")
    return static_cast<unsigned long>(
        PlaySoundW(std::wstring(value.begin(), value.end()).c_str(), nullptr, 1));
  if (verb == "until") return WaitFor("Z:" + value);
  if (verb == "sleep") return Sleep(std::stoul(value)), 0;
  if (verb == "caps") {
    MIDIOUTCAPSW caps;
    return midiOutGetDevCapsW(static_cast<UINT_PTR>(-1), &caps, sizeof caps);
  }
  std::exit(2);
}

}  // namespace

int main(int count, char** arguments) {
  for (int i = 1; i < count; ++i) {
    const std::string argument = arguments[i];
    const std::size_t equals = argument.find('=');
    const std::string value = equals == std::string::npos ? "" : argument.substr(equals + 1);
    std::printf("%lu\n", Do(argument.substr(0, equals), value));
    std::fflush(stdout);
  }
  return 0;
}
