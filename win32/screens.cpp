#include "win32/screens.h"

#include "win32/late_procedure.h"

namespace pointalk::win32 {
namespace {

constexpr UINT kUsualDpi = 96;

RECT WorkAreaOfFirstScreen() {
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  return work;
}

}  // namespace

// Older systems have one scale for all screens.
UINT ScaleOf(HWND window) {
  const auto ask = LateProcedure<decltype(&GetDpiForWindow)>(L"user32.dll", "GetDpiForWindow");
  if (ask != nullptr) return ask(window);
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dpi > 0 ? static_cast<UINT>(dpi) : kUsualDpi;
}

LONG RoomFor(HWND window) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  const bool known = GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen) != FALSE;
  const RECT work = known ? screen.rcWork : WorkAreaOfFirstScreen();
  return work.right - work.left;
}

POINT TopLeftOfScreen() {
  const RECT work = WorkAreaOfFirstScreen();
  return {work.left, work.top};
}

}  // namespace pointalk::win32
