#include "win32/window_tree.h"

#include <algorithm>

#include "win32/ansi.h"
#include "win32/password_field.h"
#include "win32/wide_text.h"
#include "win32/window_handles.h"

namespace pointalk::win32 {
namespace {

constexpr int kLongestCaption = 1024 * 1024;  // characters

}  // namespace

// Each description begins with this question, also one that asks no object.
WindowHandle WinWindowTree::WindowAt(Point screen) {
  answerTime_.BeginDescription();
  return FromWindow(WindowFromPhysicalPoint({screen.x, screen.y}));
}

std::optional<Text> WinWindowTree::ClassOf(WindowHandle window, int limit) {
  wchar_t name[kLongestClassName + 1] = {};
  const int length = GetClassNameW(ToWindow(window), name, std::clamp(limit, 0, kLongestClassName + 1));
  if (length <= 0) return std::nullopt;
  return ThroughAnsi(FromWide({name, static_cast<std::size_t>(length)}));
}

WindowHandle WinWindowTree::ParentOf(WindowHandle window) { return FromWindow(GetParent(ToWindow(window))); }

WindowHandle WinWindowTree::FirstChildOf(WindowHandle window) {
  if (window == 0) return 0;  // taken for the desktop otherwise
  return FromWindow(GetWindow(ToWindow(window), GW_CHILD));
}

WindowHandle WinWindowTree::FindTopLevel(TextView className, TextView title) {
  return FromWindow(FindWindowA(Narrow(className).c_str(), Narrow(title).c_str()));
}

std::optional<ProcessId> WinWindowTree::ProcessOf(WindowHandle window) {
  DWORD process = 0;
  if (GetWindowThreadProcessId(ToWindow(window), &process) == 0 || process == 0) return std::nullopt;
  return process;
}

std::optional<Point> WinWindowTree::ToClient(WindowHandle window, Point screen) {
  if (window == 0) return std::nullopt;
  const auto place = scale_.ToClient(ToWindow(window), {screen.x, screen.y});
  if (!place) return std::nullopt;
  return Point{place->x, place->y};
}

// For a window of another program the system gives the text that it keeps itself, without asking there.
Text WinWindowTree::CaptionOf(WindowHandle window, int capacity) {
  if (capacity <= 1 || KeeperOfText(ToWindow(window)).signs == PasswordSigns::kPassword) return {};
  std::wstring caption(static_cast<std::size_t>(std::min(capacity, kLongestCaption)), L'\0');
  const int length = GetWindowTextW(ToWindow(window), caption.data(), static_cast<int>(caption.size()));
  caption.resize(static_cast<std::size_t>(std::max(length, 0)));
  return ThroughAnsi(FromWide(caption));
}

}  // namespace pointalk::win32
