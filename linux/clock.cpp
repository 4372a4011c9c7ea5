#include "linux/clock.h"

#include <cmath>
#include <ctime>
#include <thread>

namespace pointalk::linux {
namespace {

constexpr double kSecondsOfDay = 86'400;
constexpr std::chrono::microseconds kPass{100};

}  // namespace

LinuxClock::LinuxClock() { BeginSecond(); }

void LinuxClock::BeginSecond() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  start_ = std::chrono::steady_clock::now();
  if (localtime_r(&now, &local) == nullptr) return;
  startSeconds_ = local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec;
  if (startSeconds_ >= kSecondsOfDay - 1) startSeconds_ = 0;
}

double LinuxClock::SecondsSinceMidnight() {
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start_;
  return std::fmod(startSeconds_ + passed.count(), kSecondsOfDay);
}

void LinuxClock::SpinPass() { std::this_thread::sleep_for(kPass); }

}  // namespace pointalk::linux
