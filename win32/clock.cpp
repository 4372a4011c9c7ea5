#include "win32/clock.h"

#include <windows.h>

#include <cmath>

#include "win32/counter.h"

namespace pointalk::win32 {
namespace {

constexpr double kSecondsOfDay = 86'400;

// Long beside a reading of the counter, which takes a microsecond or more on some machines; short beside what
// anybody waits for.
constexpr double kPassesOfSecond = 20'000;

// Only the second at the start in which passes are counted has more than these, which are 50 ms: the rest of
// it is slept through, since a core that is kept busy for a second is heard in the fan and missing elsewhere.
constexpr int kPassesAwake = 1'000;
constexpr DWORD kSleep = 1;  // ms; the system makes it up to 16

double Ticks() { return static_cast<double>(CounterNow()); }

}  // namespace

WinClock::WinClock() : ticksPerSecond_(static_cast<double>(CounterFrequency())) { BeginSecond(); }

void WinClock::BeginSecond() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  startTicks_ = Ticks();
  startSeconds_ = now.wHour * 3600 + now.wMinute * 60 + now.wSecond;
  if (startSeconds_ == kSecondsOfDay - 1) startSeconds_ = 0;
}

double WinClock::SecondsAt(double ticks) const {
  return std::fmod(startSeconds_ + (ticks - startTicks_) / ticksPerSecond_, kSecondsOfDay);
}

double WinClock::SecondsSinceMidnight() { return SecondsAt(Ticks()); }

double WinClock::BeginPasses() {
  passEnd_ = Ticks();
  passes_ = 0;
  return SecondsAt(passEnd_);
}

double WinClock::SpinPass() {
  passEnd_ += ticksPerSecond_ / kPassesOfSecond;
  if (++passes_ > kPassesAwake && Ticks() < passEnd_) Sleep(kSleep);
  while (Ticks() < passEnd_) YieldProcessor();
  return SecondsAt(passEnd_);
}

}  // namespace pointalk::win32
