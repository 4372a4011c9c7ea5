#include "input/double_clicks.h"

#include <cstdlib>

#include "input/mouse_messages.h"

namespace pointalk {
namespace {

constexpr std::int32_t kFromPressToDoubleClick = 2;

bool IsPress(std::int32_t message) {
  return message == kLeftPress || message == kRightPress || message == kMiddlePress;
}

bool WithinHalf(std::int32_t a, std::int32_t b, std::int32_t size) {
  return std::llabs(std::int64_t{a} - b) * 2 <= size;
}

}  // namespace

std::int32_t DoubleClicks::Report(std::int32_t message, Point place, std::uint32_t time,
                                  const Limits& limits) {
  if (!IsPress(message)) return message;
  const bool second = message == lastPress_ && time - lastTime_ <= limits.milliseconds &&
                      WithinHalf(place.x, lastPlace_.x, limits.width) &&
                      WithinHalf(place.y, lastPlace_.y, limits.height);
  lastPress_ = second ? 0 : message;
  lastPlace_ = place;
  lastTime_ = time;
  return second ? message + kFromPressToDoubleClick : message;
}

}  // namespace pointalk
