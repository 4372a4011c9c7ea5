#include "sim/input.h"

namespace pointalk::sim {

bool SimInput::KeyDown(int virtualKey) {
  if (virtualKey < 0 || static_cast<std::size_t>(virtualKey) >= machine_.keys.size()) return false;
  Key& key = machine_.keys[static_cast<std::size_t>(virtualKey)];
  const bool down = key.down || key.tapped;
  key.tapped = false;
  return down;
}

std::optional<ScreenSize> SimInput::Screen() {
  constexpr double kTwipsPerPixel = 15;
  return ScreenSize{machine_.setup.screenWidth * kTwipsPerPixel, machine_.setup.screenHeight * kTwipsPerPixel,
                    kTwipsPerPixel, kTwipsPerPixel};
}

bool SimInput::ReportMouse(bool on) {
  reportsMouse_ = on;
  return true;
}

}  // namespace pointalk::sim
