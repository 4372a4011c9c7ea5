#include "tones/delay_loop.h"

#include "text/numbers.h"

namespace pointalk {
namespace {

constexpr std::int32_t kMostPasses = 1'000'000;

}  // namespace

void DelayLoop::CalibrateDelayLoop() {
  const double target = Rounded(clock_.BeginPasses() + 1.0);
  std::int32_t pass = 1;
  while (pass <= kMostPasses && clock_.SpinPass() <= target) ++pass;
  mDelayLoopsPerSecond = pass;
}

void DelayLoop::BusyWait(std::int32_t milliseconds) {
  const std::int64_t passes = std::int64_t{mDelayLoopsPerSecond} * milliseconds / 1000;
  clock_.BeginPasses();
  for (std::int64_t pass = 1; pass <= passes; ++pass) clock_.SpinPass();
}

}  // namespace pointalk
