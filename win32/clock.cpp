#include "win32/clock.h"

#include <windows.h>

#include <cmath>

namespace pointalk::win32 {
namespace {

constexpr double kSecondsOfDay = 86'400;
constexpr int kIterationsOfPass = 1000;

std::int64_t Ticks() {
  LARGE_INTEGER ticks;
  QueryPerformanceCounter(&ticks);
  return ticks.QuadPart;
}

double TicksPerSecond() {
  LARGE_INTEGER frequency;
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(frequency.QuadPart);
}

}  // namespace

WinClock::WinClock() : ticksPerSecond_(TicksPerSecond()) { BeginSecond(); }

void WinClock::BeginSecond() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  startTicks_ = Ticks();
  startSeconds_ = now.wHour * 3600 + now.wMinute * 60 + now.wSecond;
  if (startSeconds_ == kSecondsOfDay - 1) startSeconds_ = 0;
}

double WinClock::SecondsSinceMidnight() {
  const double passed = static_cast<double>(Ticks() - startTicks_) / ticksPerSecond_;
  return std::fmod(startSeconds_ + passed, kSecondsOfDay);
}

// Each division waits for the one before it and has a divisor that is not known before, so that neither a
// clever compiler nor a wide processor gets ahead: the fastest need about 20 cycles for an iteration, and a
// million passes of a thousand take them several seconds.
void WinClock::SpinPass() {
  std::uint64_t value = spun_;
  for (int i = 0; i < kIterationsOfPass; ++i) {
    value = ~std::uint64_t{0} / (value >> 40 | 1);
    value = ~value / (value >> 40 | 1) + static_cast<std::uint64_t>(i);
  }
  spun_ = value;
}

}  // namespace pointalk::win32
