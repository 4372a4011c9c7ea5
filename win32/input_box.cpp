#include "win32/input_box.h"

#include <algorithm>
#include <cstring>

namespace pointalk::win32 {
namespace {

constexpr WORD kPromptId = 100;
constexpr WORD kEditId = 101;

// In dialog units, which grow with the font.
constexpr int kMargin = 7;
constexpr int kWidth = 260;
constexpr int kEditHeight = 14;
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;

// A dialog without controls, in the memory layout that the system reads: no menu, the system's class, no
// title, and then the font.
struct alignas(DWORD) Template {
  DLGTEMPLATE header;
  WORD menu;
  WORD windowClass;
  WORD title;
  WORD fontPoints;
  wchar_t fontName[14];
};

Template MakeTemplate() {
  Template box{};
  box.header.style =
      DS_SHELLFONT | DS_MODALFRAME | DS_SETFOREGROUND | DS_CENTER | WS_POPUP | WS_CAPTION | WS_SYSMENU;
  box.header.dwExtendedStyle = WS_EX_TOPMOST;
  box.header.cx = kWidth;
  box.header.cy = kEditHeight;
  box.fontPoints = 8;
  std::memcpy(box.fontName, L"MS Shell Dlg", sizeof L"MS Shell Dlg");
  return box;
}

// Places controls one below the other.
class Column {
 public:
  explicit Column(HWND box) : box_(box), font_(SendMessageW(box, WM_GETFONT, 0, 0)) {}

  SIZE Pixels(int width, int height) const {
    RECT units{0, 0, width, height};
    MapDialogRect(box_, &units);
    return {units.right, units.bottom};
  }

  HWND Add(const wchar_t* kind, const std::wstring& text, DWORD style, WORD id, RECT place) const {
    const DWORD extended = style & WS_BORDER ? WS_EX_CLIENTEDGE : 0;
    const HWND control =
        CreateWindowExW(extended, kind, text.c_str(), (style & ~DWORD{WS_BORDER}) | WS_CHILD | WS_VISIBLE,
                        place.left, place.top, place.right - place.left, place.bottom - place.top, box_,
                        reinterpret_cast<HMENU>(UINT_PTR{id}), GetModuleHandleW(nullptr), nullptr);
    SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(font_), FALSE);
    return control;
  }

  // How high a text is that is wrapped at a width.
  LONG HeightOf(const std::wstring& text, LONG width) const {
    const HDC screen = GetDC(box_);
    const HGDIOBJ before = SelectObject(screen, reinterpret_cast<HGDIOBJ>(font_));
    RECT place{0, 0, width, 0};
    DrawTextW(screen, text.c_str(), -1, &place, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL);
    SelectObject(screen, before);
    ReleaseDC(box_, screen);
    return place.bottom;
  }

  // Gives the box its height, measured inside its frame, and centres it.
  void Finish(LONG height) const {
    RECT inside, whole, work;
    GetClientRect(box_, &inside);
    GetWindowRect(box_, &whole);
    const LONG wholeWidth = whole.right - whole.left;
    const LONG wholeHeight = whole.bottom - whole.top - inside.bottom + height;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    SetWindowPos(box_, nullptr, std::max(work.left, (work.left + work.right - wholeWidth) / 2),
                 std::max(work.top, (work.top + work.bottom - wholeHeight) / 2), wholeWidth, wholeHeight,
                 SWP_NOZORDER);
  }

 private:
  HWND box_;
  LRESULT font_;
};

}  // namespace

std::wstring InputBox::Ask(HWND owner) {
  const Template box = MakeTemplate();
  const INT_PTR outcome = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), &box.header, owner, &OnMessage,
                                                  reinterpret_cast<LPARAM>(this));
  return outcome == IDOK ? answer_ : std::wstring();
}

INT_PTR CALLBACK InputBox::OnMessage(HWND box, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(box, DWLP_USER, lParam);
    reinterpret_cast<InputBox*>(lParam)->Fill(box);
    return FALSE;  // the focus is set already
  }
  if (message != WM_COMMAND || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)) return FALSE;
  if (LOWORD(wParam) == IDOK) reinterpret_cast<InputBox*>(GetWindowLongPtrW(box, DWLP_USER))->Accept();
  EndDialog(box, LOWORD(wParam));
  return TRUE;
}

// The prompt comes right before the edit, which screen readers take for its name.
void InputBox::Fill(HWND box) {
  SetWindowTextW(box, title_.c_str());
  const Column column(box);
  const SIZE margin = column.Pixels(kMargin, kMargin);
  const SIZE edit = column.Pixels(kWidth - 2 * kMargin, kEditHeight);
  const SIZE button = column.Pixels(kButtonWidth, kButtonHeight);
  const LONG right = margin.cx + edit.cx;

  LONG top = margin.cy;
  LONG bottom = top + column.HeightOf(prompt_, edit.cx);
  column.Add(L"STATIC", prompt_, SS_NOPREFIX | SS_EDITCONTROL, kPromptId, {margin.cx, top, right, bottom});
  top = bottom + margin.cy;
  bottom = top + edit.cy;
  edit_ = column.Add(L"EDIT", answer_, WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, kEditId,
                     {margin.cx, top, right, bottom});
  top = bottom + margin.cy;
  bottom = top + button.cy;
  const LONG middle = right - button.cx - margin.cx;
  column.Add(L"BUTTON", L"OK", WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK,
             {middle - button.cx, top, middle, bottom});
  column.Add(L"BUTTON", L"Cancel", WS_TABSTOP | BS_PUSHBUTTON, IDCANCEL,
             {right - button.cx, top, right, bottom});
  column.Finish(bottom + margin.cy);
  SendMessageW(edit_, EM_SETSEL, 0, -1);
  SetFocus(edit_);
}

void InputBox::Accept() {
  answer_.assign(static_cast<std::size_t>(GetWindowTextLengthW(edit_)) + 1, L'\0');
  const int length = GetWindowTextW(edit_, answer_.data(), static_cast<int>(answer_.size()));
  answer_.resize(static_cast<std::size_t>(std::max(length, 0)));
}

}  // namespace pointalk::win32
