#include "wine/target/controls.h"

#include <commctrl.h>
#include <commdlg.h>
#include <richedit.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace pointalk::target {
namespace {

struct ControlKind {
  const wchar_t* base;
  const wchar_t* kind;  // what `kind=` asks for
  DWORD style;
};

constexpr DWORD kList = LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_BORDER;
constexpr DWORD kText = ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL | WS_BORDER;
constexpr DWORD kPassword = ES_PASSWORD | ES_AUTOHSCROLL | WS_BORDER;
constexpr DWORD kBar = CCS_NORESIZE | CCS_NOPARENTALIGN | CCS_NODIVIDER;

constexpr std::array kKinds = {
    ControlKind{L"button", L"", BS_PUSHBUTTON},
    ControlKind{L"button", L"check", BS_AUTOCHECKBOX},
    ControlKind{L"button", L"radio", BS_AUTORADIOBUTTON},
    ControlKind{L"button", L"group", BS_GROUPBOX},
    ControlKind{L"combobox", L"", CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL},
    ControlKind{L"combobox", L"editable", CBS_DROPDOWN | CBS_HASSTRINGS | WS_VSCROLL},
    ControlKind{L"combobox", L"simple", CBS_SIMPLE | CBS_HASSTRINGS | CBS_NOINTEGRALHEIGHT | WS_VSCROLL},
    ControlKind{L"edit", L"", ES_AUTOHSCROLL | WS_BORDER},
    ControlKind{L"edit", L"multiline", kText},
    ControlKind{L"edit", L"password", kPassword},
    ControlKind{L"listbox", L"", kList | LBS_HASSTRINGS},
    ControlKind{L"listbox", L"ownerdrawn", kList | LBS_OWNERDRAWFIXED},
    ControlKind{L"richedit20a", L"", kText},
    ControlKind{L"richedit20a", L"password", kPassword},
    ControlKind{L"richedit20w", L"", kText},
    ControlKind{L"richedit20w", L"password", kPassword},
    ControlKind{L"richedit50w", L"", kText},
    ControlKind{L"richedit50w", L"password", kPassword},
    ControlKind{L"rebarwindow32", L"", kBar},
    ControlKind{L"scrollbar", L"", SBS_HORZ},
    ControlKind{L"scrollbar", L"vertical", SBS_VERT},
    ControlKind{L"syslistview32", L"", LVS_ICON | LVS_AUTOARRANGE | LVS_SHAREIMAGELISTS},
    ControlKind{L"syslistview32", L"report", LVS_REPORT | LVS_SHAREIMAGELISTS | WS_BORDER},
    ControlKind{L"systreeview32", L"", TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | WS_BORDER},
    ControlKind{L"toolbarwindow32", L"", kBar | TBSTYLE_LIST},
};

std::wstring Lower(std::wstring text) {
  CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

bool ClassExists(const std::wstring& name) {
  WNDCLASSEXW known{};
  known.cbSize = sizeof known;
  return GetClassInfoExW(GetModuleHandleW(nullptr), name.c_str(), &known) != 0;
}

bool IsSystemClass(const std::wstring& name) {
  return std::any_of(kKinds.begin(), kKinds.end(),
                     [&](const ControlKind& kind) { return name == kind.base; }) ||
         name == L"static" || name == L"systabcontrol32" || name == L"comboboxex32" ||
         name == L"msctls_statusbar32";
}

DWORD StyleFor(const CommandLine& line, const std::wstring& base) {
  if (line.Has(L"style")) return static_cast<DWORD>(line.NumberOr(L"style", 0));
  const std::wstring kind = line.OptionOr(L"kind", L"");
  for (const ControlKind& known : kKinds) {
    if (base == known.base && kind == known.kind) return known.style;
  }
  if (!kind.empty()) throw CommandError("unknown kind " + JsonText(kind));
  return 0;
}

// WindowClass and Info are the W or the A shape of one registration.
template <class WindowClass>
void Register(WindowClass& windowClass,
              BOOL(WINAPI* info)(HINSTANCE, decltype(windowClass.lpszClassName), WindowClass*),
              ATOM(WINAPI* add)(const WindowClass*), WNDPROC plain, decltype(windowClass.lpszClassName) name,
              decltype(windowClass.lpszClassName) base) {
  windowClass.cbSize = sizeof windowClass;
  if (*base != 0) {
    if (!info(nullptr, base, &windowClass)) throw CommandError("no such base class");
    windowClass.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
  } else {
    windowClass.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = plain;
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_BTNFACE) + 1);
    windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
  }
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = name;
  if (add(&windowClass) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
    throw CommandError("the class cannot be registered");
  }
}

void RegisterOwnClass(const std::wstring& name, const std::wstring& base, bool ansi) {
  if (ansi) {
    const std::string ansiName = ToAnsi(name);
    const std::string ansiBase = ToAnsi(base);
    WNDCLASSEXA windowClass{};
    Register(windowClass, &GetClassInfoExA, &RegisterClassExA, &DefWindowProcA, ansiName.c_str(),
             ansiBase.c_str());
  } else {
    WNDCLASSEXW windowClass{};
    Register(windowClass, &GetClassInfoExW, &RegisterClassExW, &DefWindowProcW, name.c_str(), base.c_str());
  }
}

}  // namespace

void LoadControlClasses() {
  INITCOMMONCONTROLSEX controls{};
  controls.dwSize = sizeof controls;
  controls.dwICC = ICC_WIN95_CLASSES | ICC_COOL_CLASSES | ICC_USEREX_CLASSES;
  InitCommonControlsEx(&controls);
  LoadLibraryW(L"riched20.dll");
  LoadLibraryW(L"msftedit.dll");
}

std::wstring BaseOf(const CommandLine& line) {
  std::wstring base = Lower(line.OptionOr(L"base", L""));
  if (!base.empty()) return base;
  const std::wstring className = Lower(line.Option(L"class"));
  return IsSystemClass(className) ? className : std::wstring();
}

HWND MakeWindow(const CommandLine& line, const std::wstring& base, HWND parent) {
  const std::wstring& className = line.Option(L"class");
  const std::wstring title = line.OptionOr(L"title", L"");
  const bool ansi = line.NumberOr(L"ansi", 0) != 0;
  if (!IsSystemClass(Lower(className)) && !ClassExists(className)) RegisterOwnClass(className, base, ansi);

  const bool frame = line.NumberOr(L"frame", 0) != 0;
  DWORD style = StyleFor(line, base) | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
  style |= parent ? WS_CHILD : (frame ? WS_OVERLAPPEDWINDOW : WS_POPUP);
  auto extended = static_cast<DWORD>(line.NumberOr(L"exstyle", 0));
  if (line.NumberOr(L"topmost", 0) != 0) extended |= WS_EX_TOPMOST;
  if (line.NumberOr(L"bottom", 0) != 0) extended |= WS_EX_NOACTIVATE;

  RECT rect = ParseRect(line.Option(L"rect"));
  const int width = rect.right - rect.left;
  const int height = rect.bottom - rect.top;
  if (parent) MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  const HWND window =
      ansi ? CreateWindowExA(extended, ToAnsi(className).c_str(), ToAnsi(title).c_str(), style, rect.left,
                             rect.top, width, height, parent, nullptr, instance, nullptr)
           : CreateWindowExW(extended, className.c_str(), title.c_str(), style, rect.left, rect.top, width,
                             height, parent, nullptr, instance, nullptr);
  if (!window) throw CommandError("the window cannot be made: error " + std::to_string(GetLastError()));
  SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
  return window;
}

void ConcealText(HWND window, const std::wstring& base) {
  const HWND edit = base == L"combobox" ? FindWindowExW(window, nullptr, L"Edit", nullptr) : window;
  if (!edit) throw CommandError("the combo box has no edit");
  SendMessageW(edit, EM_SETPASSWORDCHAR, L'*', 0);
}

void AppendMenuTo(HWND window, const std::wstring& title, const std::vector<std::wstring>& items) {
  HMENU bar = GetMenu(window);
  if (!bar) bar = CreateMenu();
  const HMENU popup = CreatePopupMenu();
  UINT_PTR id = 100;
  for (const std::wstring& item : items) {
    if (item == L"-")
      AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
    else
      AppendMenuW(popup, MF_STRING, id++, item.c_str());
  }
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), title.c_str());
  SetMenu(window, bar);
  DrawMenuBar(window);
}

}  // namespace pointalk::target
