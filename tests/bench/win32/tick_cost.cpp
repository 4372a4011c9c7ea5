// What a tick of the program costs by itself, beside the platform calls that it makes, on the real platform.
//
//   tick_cost NAME X Y [NAME X Y ...]
//
// For each place the pointer is put there and the form's tick is run again and again, first while the pointer
// moves by a pixel to and fro, at the end at rest. One JSON line a kind of tick, medians in nanoseconds:
// {"tick":"moving over NAME","calls":12,"platform":4100000,"own":2100}. "own" is the whole tick less its
// platform calls and less what timing them took.
#include <windows.h>

#include <x86intrin.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "app/mouse.h"
#include "tests/support/watched_platform.h"
#include "win32/com.h"
#include "win32/win_platform.h"

namespace {

using pointalk::Mouse;

constexpr int kTicks = 200;
constexpr int kRests = 40;
constexpr int kTicksOfARest = 50;  // a resting tick alone is shorter than the counter tells

// The processor's own counter: it is finer than the system's, and reading it takes next to nothing.
std::int64_t Now() { return static_cast<std::int64_t>(__rdtsc()); }

// Nanoseconds of one count, by the system's clock.
double CountLength() {
  LARGE_INTEGER perSecond;
  LARGE_INTEGER begin;
  LARGE_INTEGER end;
  QueryPerformanceFrequency(&perSecond);
  QueryPerformanceCounter(&begin);
  const std::int64_t first = Now();
  Sleep(200);
  QueryPerformanceCounter(&end);
  const auto seconds =
      static_cast<double>(end.QuadPart - begin.QuadPart) / static_cast<double>(perSecond.QuadPart);
  return seconds * 1e9 / static_cast<double>(Now() - first);
}

class Stopwatch final : public pointalk::testing::Watcher {
 public:
  bool Enter(const char*) override {
    ++calls;
    entered = Now();
    return true;
  }
  void Leave() override { inside += Now() - entered; }

  void Reset() { calls = inside = 0; }

  std::int64_t calls = 0;
  std::int64_t inside = 0;  // counts

 private:
  std::int64_t entered = 0;
};

std::int64_t Median(std::vector<std::int64_t> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                   values.end());
  return values[values.size() / 2];
}

// What timing a call adds to the tick outside the call.
std::int64_t TimingCost() {
  constexpr int kRounds = 400;
  constexpr int kCalls = 250;
  Stopwatch watch;
  std::vector<std::int64_t> costs;
  for (int round = 0; round < kRounds; ++round) {
    watch.Reset();
    const std::int64_t begin = Now();
    for (int call = 0; call < kCalls; ++call) watch.Pass("nothing", [] {});
    costs.push_back((Now() - begin - watch.inside) / kCalls);
  }
  return Median(costs);
}

class Measurement {
 public:
  Measurement(Mouse& form, Stopwatch& watch)
      : form_(form), watch_(watch), timing_(TimingCost()), countLength_(CountLength()) {}

  // Some ticks in a row; what one of them cost is kept.
  void Tick(int ticks) {
    watch_.Reset();
    const std::int64_t begin = Now();
    for (int tick = 0; tick < ticks; ++tick) form_.Timer1_Timer();
    const std::int64_t whole = Now() - begin;
    calls_.push_back(watch_.calls / ticks);
    platform_.push_back(watch_.inside / ticks);
    own_.push_back(std::max<std::int64_t>(0, (whole - watch_.inside - watch_.calls * timing_) / ticks));
  }

  void Print(const std::string& name) {
    std::printf("{\"tick\":\"%s\",\"calls\":%lld,\"platform\":%.0f,\"own\":%.0f}\n", name.c_str(),
                static_cast<long long>(Median(calls_)), static_cast<double>(Median(platform_)) * countLength_,
                static_cast<double>(Median(own_)) * countLength_);
    std::fflush(stdout);
    calls_.clear();
    platform_.clear();
    own_.clear();
  }

 private:
  Mouse& form_;
  Stopwatch& watch_;
  std::int64_t timing_;
  double countLength_;
  std::vector<std::int64_t> calls_, platform_, own_;
};

void Measure(Mouse& form, Stopwatch& watch, int places, char** place) {
  Measurement measurement(form, watch);
  for (int index = 0; index < places; ++index) {
    const std::string name = place[3 * index];
    const int x = std::atoi(place[3 * index + 1]);
    const int y = std::atoi(place[3 * index + 2]);
    for (int tick = 0; tick < kTicks; ++tick) {
      SetCursorPos(x + tick % 2, y);
      measurement.Tick(1);
    }
    measurement.Print("moving over " + name);
  }
  for (int tick = 0; tick < 20; ++tick) form.Timer1_Timer();
  for (int rest = 0; rest < kRests; ++rest) measurement.Tick(kTicksOfARest);
  measurement.Print("resting");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4 || (argc - 1) % 3 != 0) {
    std::fputs("tick_cost NAME X Y [NAME X Y ...]\n", stderr);
    return 2;
  }
  const pointalk::win32::ComThread com(COINIT_APARTMENTTHREADED);
  pointalk::win32::WinPlatform base;
  Stopwatch watch;
  pointalk::testing::WatchedPlatform watched(base.Seam(), watch);
  Mouse form(watched.Get());
  form.Form_Load();
  base.panel.SetTimerEnabled(false);
  Measure(form, watch, (argc - 1) / 3, argv + 1);
  form.Form_Terminate();
  return 0;
}
