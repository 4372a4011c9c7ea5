#include "win32/window_scale.h"

#include "win32/late_procedure.h"

namespace pointalk::win32 {
namespace {

template <typename Procedure> Procedure Find(const char* name) {
  return LateProcedure<Procedure>(L"user32.dll", name);
}

// Older systems lack these: there, all windows count in the same pixels.
struct ScaleProcedures {
  decltype(&GetWindowDpiAwarenessContext) ofWindow =
      Find<decltype(&GetWindowDpiAwarenessContext)>("GetWindowDpiAwarenessContext");
  decltype(&GetThreadDpiAwarenessContext) ofThread =
      Find<decltype(&GetThreadDpiAwarenessContext)>("GetThreadDpiAwarenessContext");
  decltype(&AreDpiAwarenessContextsEqual) areEqual =
      Find<decltype(&AreDpiAwarenessContextsEqual)>("AreDpiAwarenessContextsEqual");
  decltype(&SetThreadDpiAwarenessContext) set =
      Find<decltype(&SetThreadDpiAwarenessContext)>("SetThreadDpiAwarenessContext");

  bool AreThere() const { return ofWindow && ofThread && areEqual && set; }
};

SIZE InsideOf(HWND window) {
  RECT inside{};
  GetClientRect(window, &inside);
  return {inside.right, inside.bottom};
}

LONG Scaled(LONG place, LONG from, LONG to) {
  return from > 0 && from != to ? MulDiv(place, to, from) : place;
}

}  // namespace

POINT AsWindowCounts(HWND window, POINT client) {
  static const ScaleProcedures system;
  if (!system.AreThere()) return client;
  const DPI_AWARENESS_CONTEXT theirs = system.ofWindow(window);
  if (theirs == nullptr || system.areEqual(theirs, system.ofThread())) return client;
  const SIZE real = InsideOf(window);
  const DPI_AWARENESS_CONTEXT ours = system.set(theirs);
  const SIZE counted = InsideOf(window);
  system.set(ours);
  return {Scaled(client.x, real.cx, counted.cx), Scaled(client.y, real.cy, counted.cy)};
}

}  // namespace pointalk::win32
