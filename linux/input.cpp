#include "linux/input.h"

#include <X11/X.h>

namespace pointalk::linux {
namespace {

// Every pixel counts, at every scale, and 96 of them are called an inch.
constexpr double kTwipsOfPixel = 15;

unsigned MaskOf(int virtualKey) {
  switch (virtualKey) {
    case kKeyLeftButton: return Button1Mask;
    case kKeyShift: return ShiftMask;
    case kKeyControl: return ControlMask;
    case kKeyAlt: return Mod1Mask;
    default: return 0;
  }
}

}  // namespace

std::optional<Point> LinuxInput::PointerPosition() {
  const auto pointer = display_.AskPointer();
  if (!pointer) return std::nullopt;
  return pointer->place;
}

// Both are asked, so that a press that is seen by the mask is not told once more when the key is up again.
bool LinuxInput::KeyDown(int virtualKey) {
  const bool pressed = watcher_.TakePress(virtualKey);
  const auto pointer = display_.AskPointer();
  return pressed || (pointer && (pointer->mask & MaskOf(virtualKey)) != 0);
}

std::optional<ScreenSize> LinuxInput::Screen() {
  const auto root = display_.IsOpen() ? display_.PlaceOf(display_.Root()) : std::nullopt;
  if (!root || root->width <= 0 || root->height <= 0) return std::nullopt;
  return ScreenSize{root->width * kTwipsOfPixel, root->height * kTwipsOfPixel, kTwipsOfPixel, kTwipsOfPixel};
}

bool LinuxInput::ReportMouse(bool on) { return watcher_.Report(on); }

}  // namespace pointalk::linux
