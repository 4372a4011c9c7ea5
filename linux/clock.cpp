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

double LinuxClock::SecondsAt(Moment moment) const {
  const std::chrono::duration<double> passed = moment - start_;
  return std::fmod(startSeconds_ + passed.count(), kSecondsOfDay);
}

double LinuxClock::SecondsSinceMidnight() { return SecondsAt(std::chrono::steady_clock::now()); }

double LinuxClock::BeginPasses() {
  passEnd_ = std::chrono::steady_clock::now();
  return SecondsAt(passEnd_);
}

double LinuxClock::SpinPass() {
  passEnd_ += kPass;
  std::this_thread::sleep_until(passEnd_);
  return SecondsAt(passEnd_);
}

}  // namespace pointalk::linux
