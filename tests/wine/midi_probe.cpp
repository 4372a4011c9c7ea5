// A client of the synthesizer for the tests: does what its arguments say, one after the other, and prints the
// result of each on a line of its own.
//   devices, open, caps, close, reset, time, short=HEXADECIMAL, sound=NAME, wide=NAME, sleep=MILLISECONDS,
//   until=PATH (of a file that must hold over 1000 bytes; 1 when it does not within a minute)
#include <windows.h>

#include <mmsystem.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

bool Grows(const std::string& path) {
  for (int look = 0; look < 6000; ++look, Sleep(10)) {
    WIN32_FILE_ATTRIBUTE_DATA file{};
    if (GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &file) && file.nFileSizeLow > 1000)
      return true;
  }
  return false;
}

HMIDIOUT port = nullptr;

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
  if (verb == "sleep") return Sleep(std::stoul(value)), 0;
  if (verb == "until") return Grows(value) ? 0 : 1;
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
    const auto begin = std::chrono::steady_clock::now();
    const unsigned long result = Do(argument.substr(0, equals), value);
    const auto took = std::chrono::steady_clock::now() - begin;
    std::printf("%lu\t%lld\n", result,
                static_cast<long long>(std::chrono::duration_cast<std::chrono::microseconds>(took).count()));
    std::fflush(stdout);
  }
  return 0;
}
