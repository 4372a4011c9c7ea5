// The performance counter: time in small steps that only goes forwards, where the system's other clocks go on
// in steps of up to 16 ms.
#pragma once

#include <windows.h>

#include <cstdint>

namespace pointalk::win32 {

inline std::int64_t CounterNow() {
  LARGE_INTEGER now;
  QueryPerformanceCounter(&now);
  return now.QuadPart;
}

// Its steps in a second.
inline std::int64_t CounterFrequency() {
  LARGE_INTEGER frequency;
  QueryPerformanceFrequency(&frequency);
  return frequency.QuadPart;
}

// A moment that is waited for no longer than. `now` is what the counter tells.
class Deadline {
 public:
  explicit Deadline(DWORD milliseconds, std::int64_t now = CounterNow())
      : end_(now + CounterFrequency() * std::int64_t{milliseconds} / 1000) {}

  // Milliseconds until then, a part of one counted as a whole; 0 once it is over.
  DWORD Left(std::int64_t now = CounterNow()) const {
    const std::int64_t left = end_ - now;
    if (left <= 0) return 0;
    return static_cast<DWORD>((left * 1000 + CounterFrequency() - 1) / CounterFrequency());
  }

 private:
  std::int64_t end_;
};

}  // namespace pointalk::win32
