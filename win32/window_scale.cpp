#include "win32/window_scale.h"

#include "win32/late_procedure.h"

namespace pointalk::win32 {
namespace {

template <typename Procedure> void Find(Procedure& procedure, const char* name) {
  procedure = LateProcedure<Procedure>(L"user32.dll", name);
}

}  // namespace

ScaleCalls ScaleCalls::OfSystem() {
  ScaleCalls calls;
  Find(calls.ofWindow, "GetWindowDpiAwarenessContext");
  Find(calls.ofThread, "GetThreadDpiAwarenessContext");
  Find(calls.areEqual, "AreDpiAwarenessContextsEqual");
  Find(calls.set, "SetThreadDpiAwarenessContext");
  Find(calls.toOwnPerMonitor, "PhysicalToLogicalPointForPerMonitorDPI");
  Find(calls.toOwn, "PhysicalToLogicalPoint");
  calls.toClient = &ScreenToClient;
  calls.toScreen = &ClientToScreen;
  return calls;
}

InOwnAwareness::InOwnAwareness(const ScaleCalls& system, HWND window, POINT place)
    : system_(system), place_(place) {
  if (!system_.HaveAwareness()) return;
  const DPI_AWARENESS_CONTEXT theirs = system_.ofWindow(window);
  if (theirs == nullptr || system_.areEqual(theirs, system_.ofThread())) return;
  if (!system_.toOwnPerMonitor(window, &place)) return;
  before_ = system_.set(theirs);
  if (before_ != nullptr) place_ = place;
}

InOwnAwareness::~InOwnAwareness() {
  if (before_ != nullptr) system_.set(before_);
}

std::optional<POINT> WindowScale::ToClient(HWND window, POINT place) const {
  if (!system_.HaveAwareness() && system_.toOwnPerMonitor != nullptr) {
    if (const auto client = FromTopLeft(window, place)) return client;
  }
  return AskAt(window, place, [this, window](POINT own) -> std::optional<POINT> {
    if (!system_.toClient(window, &own)) return std::nullopt;
    return own;
  });
}

// Up to Windows 8 such a window's places are its own to everybody.
POINT WindowScale::OwnPlace(HWND window, POINT place) const {
  system_.toOwn(window, &place);
  return place;
}

// Windows 8.1 converts a place of the screen, but none of a window's inside: both ends of the way are taken.
std::optional<POINT> WindowScale::FromTopLeft(HWND window, POINT place) const {
  POINT topLeft{};
  if (!system_.toScreen(window, &topLeft) || !system_.toOwnPerMonitor(window, &place) ||
      !system_.toOwnPerMonitor(window, &topLeft))
    return std::nullopt;
  return POINT{place.x - topLeft.x, place.y - topLeft.y};
}

}  // namespace pointalk::win32
