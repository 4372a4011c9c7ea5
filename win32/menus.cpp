#include "win32/menus.h"

#include <algorithm>
#include <string>

#include "win32/ansi.h"
#include "win32/wide_text.h"
#include "win32/window_handles.h"

namespace pointalk::win32 {
namespace {

constexpr int kLongestMenuText = 64 * 1024;  // characters

HMENU ToMenu(MenuHandle menu) { return reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(menu)); }

MenuHandle FromMenu(HMENU menu) { return reinterpret_cast<std::uintptr_t>(menu); }

}  // namespace

MenuHandle WinMenus::MenuOf(WindowHandle window) { return FromMenu(GetMenu(ToWindow(window))); }

MenuHandle WinMenus::SubMenuOf(MenuHandle menu, int position) {
  return FromMenu(GetSubMenu(ToMenu(menu), position));
}

bool WinMenus::IsMenu(MenuHandle menu) { return ::IsMenu(ToMenu(menu)) != FALSE; }

std::int32_t WinMenus::ItemAt(WindowHandle window, MenuHandle menu, Point screen) {
  return scale_.AskAt(ToWindow(window), {screen.x, screen.y}, [window, menu](POINT place) {
    return MenuItemFromPoint(ToWindow(window), ToMenu(menu), place);
  });
}

std::int32_t WinMenus::ItemText(MenuHandle menu, std::int32_t position, Text& buffer, int capacity) {
  if (position < 0 || capacity <= 1) return 0;
  std::wstring item(static_cast<std::size_t>(std::min(capacity, kLongestMenuText)), L'\0');
  const int length = GetMenuStringW(ToMenu(menu), static_cast<UINT>(position), item.data(),
                                    static_cast<int>(item.size()), MF_BYPOSITION);
  item.resize(static_cast<std::size_t>(std::max(length, 0)));
  const Text text = ThroughAnsi(FromWide(item));
  buffer.replace(0, text.size(), text);
  return static_cast<std::int32_t>(text.size());
}

}  // namespace pointalk::win32
