#include "tones/delay_loop.h"

#include <tuple>

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
  // Only the time that it takes is wanted; what time it is then is not.
  std::ignore = clock_.BeginPasses();
  for (std::int64_t pass = 1; pass <= passes; ++pass) std::ignore = clock_.SpinPass();
}

}  // namespace pointalk
