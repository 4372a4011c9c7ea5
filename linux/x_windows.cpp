#include "linux/x_windows.h"

#include <algorithm>

namespace pointalk::linux {
namespace {

constexpr int kDeepest = 16;            // windows in each other that are gone through to the client's
constexpr int kFrameLevels = 3;         // of a window manager's frame
constexpr std::size_t kMostTried = 64;  // parts of a frame that are looked at

}  // namespace

// The server gives the topmost window, by the windows' shapes. Which one lies under a window that is looked
// through it does not tell. That is the next window of a program: the one that a compositing manager draws
// the whole screen in lies above all, and is none.
XWindowId XWindows::TopAt(Point screen) {
  const XWindowId top = display_.ChildAt(display_.Root(), screen);
  if (top == 0 || !IsLookedThrough(top)) return top;
  std::vector<XWindowId> all = display_.ChildrenOf(display_.Root());
  const auto below = std::find_if(all.rbegin(), all.rend(), [this, screen](XWindowId window) {
    const auto place = display_.PlaceOf(window);
    return place && place->isShown && place->Holds(screen) && !IsLookedThrough(window) && IsOfProgram(window);
  });
  return below == all.rend() ? 0 : *below;
}

// A tool tip lies where the pointer rests, over the thing that it tells of. Of some windows nothing is seen:
// they catch the pointer at the edges of the screen, and what is seen there lies below.
bool XWindows::IsLookedThrough(XWindowId window) {
  const auto place = display_.PlaceOf(window);
  if (place && place->isInputOnly) return true;
  const auto types = display_.AtomNames(window, "_NET_WM_WINDOW_TYPE");
  return std::find(types.begin(), types.end(), "_NET_WM_WINDOW_TYPE_TOOLTIP") != types.end();
}

bool XWindows::IsOfProgram(XWindowId window) {
  return IsClient(window) || display_.Has(window, "_NET_WM_PID") || ClientWithin(window) != 0;
}

XWindowSpot XWindows::At(Point screen) {
  if (!display_.IsOpen()) return {};
  const XWindowId top = TopAt(screen);
  XWindowId window = top;
  for (int level = 0; window != 0 && level < kDeepest; ++level) {
    if (IsClient(window)) return Spot(XWindowSpot::Kind::kWindow, window);
    window = display_.ChildAt(window, screen);
  }
  if (top == 0) return {};
  if (const XWindowId client = ClientWithin(top)) return Spot(XWindowSpot::Kind::kTitleBar, client);
  XWindowSpot spot = Spot(XWindowSpot::Kind::kPopUp, top);
  // Without a window manager nobody marks a program's windows.
  if (!spot.place.overridesRedirect) spot.kind = XWindowSpot::Kind::kWindow;
  return spot.process == 0 ? XWindowSpot{} : spot;
}

// The window that a frame was put around; 0 for what is no frame.
XWindowId XWindows::ClientWithin(XWindowId frame) {
  std::vector<XWindowId> level{frame};
  std::size_t tried = 0;
  for (int depth = 0; depth < kFrameLevels; ++depth) {
    std::vector<XWindowId> next;
    for (const XWindowId window : level) {
      for (const XWindowId child : display_.ChildrenOf(window)) {
        if (IsClient(child)) return child;
        if (++tried > kMostTried) return 0;
        next.push_back(child);
      }
    }
    level = std::move(next);
  }
  return 0;
}

XWindowSpot XWindows::Spot(XWindowSpot::Kind kind, XWindowId window) {
  XWindowSpot spot;
  spot.kind = kind;
  spot.window = window;
  spot.process = display_.Number(window, "_NET_WM_PID").value_or(0);
  spot.place = display_.PlaceOf(window).value_or(XDisplay::Place{});
  return spot;
}

}  // namespace pointalk::linux
