#include "win32/input.h"

namespace pointalk::win32 {
namespace {

// The program sees real pixels at every scale of the screen, and calls 96 of them an inch.
constexpr double kTwipsOfPixel = 15;

}  // namespace

std::optional<Point> WinInput::PointerPosition() {
  POINT place;
  if (!GetPhysicalCursorPos(&place)) return std::nullopt;
  return Point{place.x, place.y};
}

bool WinInput::KeyDown(int virtualKey) {
  return GetAsyncKeyState(virtualKey == kKeyLeftButton ? LeftButton() : virtualKey) != 0;
}

std::optional<ScreenSize> WinInput::Screen() {
  const int width = GetSystemMetrics(SM_CXSCREEN);
  const int height = GetSystemMetrics(SM_CYSCREEN);
  if (width <= 0 || height <= 0) return std::nullopt;
  return ScreenSize{width * kTwipsOfPixel, height * kTwipsOfPixel, kTwipsOfPixel, kTwipsOfPixel};
}

bool WinInput::ReportMouse(bool on) {
  if (on) return reports_.Start();
  reports_.Stop();
  return true;
}

}  // namespace pointalk::win32
