#include <windows.h>

#include <array>

#include "wine/probe/questions.h"

namespace pointalk::probe {
namespace {

using target::JsonObject;

std::string WindowJson(HWND window) {
  std::array<wchar_t, 256> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  std::array<wchar_t, 256> title{};
  InternalGetWindowText(window, title.data(), static_cast<int>(title.size()));
  RECT rect{};
  GetWindowRect(window, &rect);
  const auto xWindow = reinterpret_cast<LONG_PTR>(GetPropW(window, L"__wine_x11_whole_window"));
  return JsonObject()
      .Number("hwnd", reinterpret_cast<LONG_PTR>(window))
      .Text("class", name.data())
      .Text("title", title.data())
      .Raw("rect", target::JsonRect(rect))
      .Number("xWindow", xWindow)
      .Line();
}

BOOL CALLBACK AddVisible(HWND window, LPARAM list) {
  auto& json = *reinterpret_cast<std::string*>(list);
  if (!IsWindowVisible(window)) return TRUE;
  if (!json.empty()) json += ",";
  json += WindowJson(window);
  return TRUE;
}

}  // namespace

std::string AnswerWindows(HWND parent) {
  std::string list;
  if (parent) {
    // Of one that becomes visible only now the first children would be missed.
    if (IsWindowVisible(parent)) EnumChildWindows(parent, AddVisible, reinterpret_cast<LPARAM>(&list));
  } else {
    EnumWindows(AddVisible, reinterpret_cast<LPARAM>(&list));
  }
  return JsonObject().Raw("windows", "[" + list + "]").Line();
}

std::string AnswerFocus() {
  const HWND foreground = GetForegroundWindow();
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(GetWindowThreadProcessId(foreground, nullptr), &thread);
  return JsonObject()
      .Raw("window", WindowJson(foreground))
      .Raw("focus", WindowJson(thread.hwndFocus))
      .Flag("menu", (thread.flags & GUI_INMENUMODE) != 0)
      .Line();
}

std::string AnswerPlace(HWND window, const RECT& rect) {
  ShowWindow(window, SW_SHOWNOACTIVATE);
  const BOOL placed = SetWindowPos(window, HWND_TOP, rect.left, rect.top, rect.right - rect.left,
                                   rect.bottom - rect.top, SWP_NOACTIVATE);
  return JsonObject().Flag("placed", placed != FALSE).Line();
}

}  // namespace pointalk::probe
