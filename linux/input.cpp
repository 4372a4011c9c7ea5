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

StillInput::StillInput(LinuxInput& input) : input_(input) {
  for (const int key : {kKeyLeftButton, kKeyShift, kKeyControl, kKeyAlt}) {
    if (input.watcher_.TakePress(key)) input.pressed_.push_back(key);
  }
  input.still_ = input.display_.AskPointer();
}

std::optional<Point> LinuxInput::PointerPosition() {
  const auto pointer = Pointer();
  if (!pointer) return std::nullopt;
  return pointer->place;
}

// A press that is seen by the mask is not told once more when the key is up again.
bool LinuxInput::KeyDown(int virtualKey) {
  const bool wasPressed = std::erase(pressed_, virtualKey) > 0;
  const bool isPressed = !still_ && watcher_.TakePress(virtualKey);
  const auto pointer = Pointer();
  return wasPressed || isPressed || (pointer && (pointer->mask & MaskOf(virtualKey)) != 0);
}

std::optional<ScreenSize> LinuxInput::Screen() {
  const auto root = display_.IsOpen() ? display_.PlaceOf(display_.Root()) : std::nullopt;
  if (!root || root->width <= 0 || root->height <= 0) return std::nullopt;
  return ScreenSize{root->width * kTwipsOfPixel, root->height * kTwipsOfPixel, kTwipsOfPixel, kTwipsOfPixel};
}

bool LinuxInput::ReportMouse(bool on) { return watcher_.Report(on); }

}  // namespace pointalk::linux
