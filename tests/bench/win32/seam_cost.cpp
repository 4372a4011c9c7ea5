// What the seam on Windows takes of its own, and whether the delay loop keeps its time.
//
//   seam_cost X Y
//
// One JSON line a measurement, times in nanoseconds: a pass of the delay loop and a reading of the clock; how
// long a wait of 20 ms is that was calibrated as the program does it (the shortest, the median and the
// longest); a file of a line written whole; the accessible object at the given place asked on this thread,
// and through the worker with its time limit, in turns.
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <tuple>
#include <vector>

#include "tones/delay_loop.h"
#include "win32/accessibility.h"
#include "win32/clock.h"
#include "win32/com.h"
#include "win32/files.h"
#include "win32/object_question.h"

namespace {

using pointalk::Point;

std::int64_t Now() {
  LARGE_INTEGER count, perSecond;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&perSecond);
  return static_cast<std::int64_t>(static_cast<double>(count.QuadPart) * 1e9 /
                                   static_cast<double>(perSecond.QuadPart));
}

template <typename Work> std::int64_t Time(Work work) {
  const std::int64_t begin = Now();
  work();
  return Now() - begin;
}

// The shortest, the median and the longest of several times.
struct Spread {
  explicit Spread(std::vector<std::int64_t> times) {
    std::sort(times.begin(), times.end());
    least = times.front();
    median = times[times.size() / 2];
    most = times.back();
  }

  void Print(const char* name) const {
    std::printf("{\"what\":\"%s\",\"least\":%lld,\"median\":%lld,\"most\":%lld}\n", name,
                static_cast<long long>(least), static_cast<long long>(median), static_cast<long long>(most));
    std::fflush(stdout);
  }

  std::int64_t least, median, most;
};

template <typename Work> Spread TimeOf(int times, Work work) {
  std::vector<std::int64_t> taken;
  for (int i = 0; i < times; ++i) taken.push_back(Time(work));
  return Spread(taken);
}

void MeasureClock() {
  pointalk::win32::WinClock clock;
  clock.BeginPasses();
  TimeOf(1000, [&] { clock.SpinPass(); }).Print("pass");
  double sum = 0;
  TimeOf(1000, [&] {
    for (int i = 0; i < 100; ++i) sum += clock.SecondsSinceMidnight();
  }).Print("hundred clock readings");
  pointalk::DelayLoop loop(clock);
  clock.BeginSecond();
  loop.CalibrateDelayLoop();
  TimeOf(100, [&] { loop.BusyWait(20); }).Print("wait of 20 ms");
  if (sum < 0) std::abort();  // so that the readings are wanted
}

void MeasureFiles() {
  pointalk::win32::WinFiles files;
  const pointalk::FilePath path{pointalk::Folder::kCurrent, u"seam_cost.txt"};
  TimeOf(200, [&] {
    if (!files.Write(path, u"^SysListView32\r\n")) std::abort();
  }).Print("file written");
  bool marked = false;
  TimeOf(200, [&] {
    marked = !marked;
    if (!files.WriteLog(path, marked ? u"SysListView32\r\n" : u"^SysListView32\r\n")) std::abort();
  }).Print("log written");
  TimeOf(200, [&] {
    if (!files.WriteLog(path, u"^SysListView32\r\n")) std::abort();
  }).Print("log that says so already");
  DeleteFileW(L"seam_cost.txt");
}

void MeasureObjects(Point place) {
  constexpr int kTurns = 200;
  pointalk::win32::UnresponsiveThreads unresponsiveThreads;
  pointalk::win32::WinAccessibility accessibility(unresponsiveThreads);
  pointalk::win32::AutomationQuestion automation;
  std::vector<std::int64_t> direct, limited;
  for (int turn = 0; turn < kTurns; ++turn) {
    direct.push_back(
        Time([&] { std::ignore = pointalk::win32::AskObjectAt(place, automation, [](const auto&) {}); }));
    limited.push_back(Time([&] { std::ignore = accessibility.ObjectAt(place); }));
  }
  Spread(direct).Print("object asked directly");
  Spread(limited).Print("object asked with its limit");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("seam_cost X Y\n", stderr);
    return 2;
  }
  const pointalk::win32::ComThread com(COINIT_APARTMENTTHREADED);
  MeasureClock();
  MeasureFiles();
  MeasureObjects({std::atoi(argv[1]), std::atoi(argv[2])});
  return 0;
}
