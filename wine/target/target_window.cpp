#include "wine/target/target_window.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "wine/target/given_memory.h"
#include "wine/target/messages.h"

namespace pointalk::target {
namespace {

constexpr wchar_t kProperty[] = L"TargetWindow";

// Writes as much of the text as fits into capacity units of room; the end mark only where it fits.
template <class Unit> void Fill(Unit* room, std::size_t capacity, std::basic_string_view<Unit> text) {
  const std::size_t count = std::min(capacity, text.size());
  std::memcpy(room, text.data(), count * sizeof(Unit));
  if (count < capacity) room[count] = 0;
}

// Wine 8 hands EM_GETLINE from another process over with its capacity lost: the two words at the begin of the
// block that it made for the line, the sender's capacity and a copy of it where the message points, are left
// to chance. The control then takes the copy at its word, and the other one decides how many bytes go back,
// which may end the thread. The block's size tells the capacity again. Elsewhere no heap block begins a word
// before the line. An ANSI window gets a copy of the line's room to fill, so nothing can be done for it: on
// Wine its thread may end.
void RestoreLineCapacity(LPARAM line) {
  auto* words = reinterpret_cast<WORD*>(line) - 1;
  if (line % sizeof(DWORD) != sizeof(WORD) || !HeapValidate(GetProcessHeap(), 0, words)) return;
  const SIZE_T size = HeapSize(GetProcessHeap(), 0, words);
  words[0] = words[1] = static_cast<WORD>(size / sizeof(WCHAR) - 1);
}

}  // namespace

TargetWindow::TargetWindow(std::wstring name, std::wstring base, UiThread& thread, CommandRunner runner)
    : mName(std::move(name)), mBase(std::move(base)), mThread(thread), mRunner(std::move(runner)) {
  mElements->behaviour = mBehaviour;
}

void TargetWindow::Adopt(HWND handle, bool keepAtBottom) {
  mHandle = handle;
  mKeepAtBottom = keepAtBottom;
  mUnicode = IsWindowUnicode(handle) != 0;
  SetPropW(handle, kProperty, this);
  const auto procedure = reinterpret_cast<LONG_PTR>(&TargetWindow::Procedure);
  mPrevious = reinterpret_cast<WNDPROC>(mUnicode ? SetWindowLongPtrW(handle, GWLP_WNDPROC, procedure)
                                                 : SetWindowLongPtrA(handle, GWLP_WNDPROC, procedure));
}

std::string TargetWindow::Raise() {
  SetWindowPos(mHandle, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  return Description();
}

std::string TargetWindow::Show() {
  SetWindowPos(mHandle, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  UpdateWindow(mHandle);
  return Description();
}

Element& TargetWindow::ElementAt(LONG id) {
  if (!mObject) {
    mObject = new AccessibleObject(mElements, CHILDID_SELF);
    mElements->elements[CHILDID_SELF];
  }
  InvalidateRect(mHandle, nullptr, TRUE);
  return mElements->elements[id];
}

void TargetWindow::ForgetElements() {
  mElements->elements.clear();
  if (mObject) mObject->Release();
  mObject = nullptr;
  InvalidateRect(mHandle, nullptr, TRUE);
}

std::string TargetWindow::Description() const {
  std::array<wchar_t, 256> className{};
  GetClassNameW(mHandle, className.data(), static_cast<int>(className.size()));
  RECT rect{};
  GetWindowRect(mHandle, &rect);
  return JsonObject()
      .Text("name", mName)
      .Number("hwnd", reinterpret_cast<LONG_PTR>(mHandle))
      .Text("class", className.data())
      .Rect("rect", rect)
      .Number("thread", mThread.Id())
      .Flag("unicode", mUnicode)
      .Line();
}

LRESULT CALLBACK TargetWindow::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* window = static_cast<TargetWindow*>(GetPropW(handle, kProperty));
  if (!window) return DefWindowProcW(handle, message, wParam, lParam);
  return window->Answer(message, wParam, lParam);
}

LRESULT TargetWindow::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
  // What a control sends itself while it answers another program is its own business and not counted.
  int& depth = mThread.AnswerDepth();
  if (depth > 0 || !InSendMessage()) return AnswerAsBuilt(message, wParam, lParam);
  ++depth;
  const LRESULT result = AnswerStranger(message, wParam, lParam);
  --depth;
  return result;
}

LRESULT TargetWindow::AnswerStranger(UINT message, WPARAM wParam, LPARAM lParam) {
  mBehaviour->Count(message);
  const UseOfGivenMemory use(message);
  if (message == EM_GETLINE && mUnicode) RestoreLineCapacity(lParam);
  if (const auto rule = mBehaviour->Find(message)) return AnswerByRule(*rule, message, wParam, lParam);
  return AnswerAsBuilt(message, wParam, lParam);
}

LRESULT TargetWindow::AnswerByRule(const Rule& rule, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (rule.kind) {
    case Rule::Kind::Die: Die();
    case Rule::Kind::Result: return rule.result;
    case Rule::Kind::Delay: Sleep(rule.milliseconds); return AnswerAsBuilt(message, wParam, lParam);
    case Rule::Kind::Hold: mBehaviour->WaitWhileHeld(message); return AnswerAsBuilt(message, wParam, lParam);
    case Rule::Kind::Text: return AnswerText(rule, message, wParam, lParam);
    case Rule::Kind::Hit: {
      const LRESULT result = AnswerAsBuilt(message, wParam, lParam);
      auto* hit = reinterpret_cast<LVHITTESTINFO*>(lParam);
      hit->iItem = rule.item;
      hit->flags = rule.flags;
      return result;
    }
    case Rule::Kind::Then: {
      const LRESULT result = AnswerAsBuilt(message, wParam, lParam);
      mRunner(rule.command);
      return result;
    }
  }
  return 0;
}

LRESULT TargetWindow::AnswerText(const Rule& rule, UINT message, WPARAM wParam, LPARAM lParam) {
  const std::string ansi = ToAnsi(rule.text);
  const auto fill = [&](LPARAM room, std::size_t capacity, bool wide) {
    if (wide)
      Fill(reinterpret_cast<wchar_t*>(room), capacity, std::wstring_view(rule.text));
    else
      Fill(reinterpret_cast<char*>(room), capacity, std::string_view(ansi));
  };
  switch (message) {
    case WM_GETTEXT: fill(lParam, wParam, mUnicode); break;
    case EM_GETLINE: fill(lParam, *reinterpret_cast<const WORD*>(lParam), mUnicode); break;
    case LB_GETTEXT: {
      // The system made room for the length that it was told itself, so the true one is what surely fits.
      const LRESULT length = CallPrevious(LB_GETTEXTLEN, wParam, 0);
      if (length >= 0) fill(lParam, static_cast<std::size_t>(length) + 1, mUnicode);
      break;
    }
    case LVM_GETITEMA: {
      const auto* item = reinterpret_cast<const LVITEMA*>(lParam);
      fill(reinterpret_cast<LPARAM>(item->pszText), static_cast<std::size_t>(item->cchTextMax), false);
      break;
    }
    default: break;
  }
  return rule.result;
}

LRESULT TargetWindow::AnswerAsBuilt(UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = [&]() -> LRESULT {
    switch (message) {
      case WM_GETOBJECT:
        if (mObject && static_cast<LONG>(lParam) == static_cast<LONG>(OBJID_CLIENT)) {
          return LresultFromObject(__uuidof(IAccessible), wParam, mObject);
        }
        break;
      case WM_WINDOWPOSCHANGING:
        if (mKeepAtBottom) {
          auto* place = reinterpret_cast<WINDOWPOS*>(lParam);
          place->hwndInsertAfter = HWND_BOTTOM;
          place->flags &= ~static_cast<UINT>(SWP_NOZORDER);
        }
        break;
      case WM_PAINT:
        if (mBase.empty()) Paint();
        break;
      default: break;
    }
    return CallPrevious(message, wParam, lParam);
  }();
  if (message == WM_NCDESTROY) {
    ForgetElements();
    RemovePropW(mHandle, kProperty);
  }
  return result;
}

LRESULT TargetWindow::CallPrevious(UINT message, WPARAM wParam, LPARAM lParam) {
  return mUnicode ? CallWindowProcW(mPrevious, mHandle, message, wParam, lParam)
                  : CallWindowProcA(mPrevious, mHandle, message, wParam, lParam);
}

void TargetWindow::Paint() {
  PAINTSTRUCT paint;
  const HDC context = BeginPaint(mHandle, &paint);
  SelectObject(context, GetStockObject(DEFAULT_GUI_FONT));
  SetBkMode(context, TRANSPARENT);
  const auto draw = [&](std::wstring text, RECT rect) {
    DrawTextW(context, text.substr(0, 80).c_str(), -1, &rect, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
  };
  if (mElements->elements.empty() && (GetWindowLongPtrW(mHandle, GWL_STYLE) & WS_CAPTION) != WS_CAPTION) {
    RECT client{};
    GetClientRect(mHandle, &client);
    std::array<wchar_t, 80> title{};
    GetWindowTextW(mHandle, title.data(), static_cast<int>(title.size()));
    draw(title.data(), client);
  }
  for (const auto& [id, element] : mElements->elements) {
    if (id == CHILDID_SELF) continue;
    RECT rect = element.rect;
    MapWindowPoints(nullptr, mHandle, reinterpret_cast<POINT*>(&rect), 2);
    FrameRect(context, &rect, static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH)));
    draw(element.name.value_or(L""), rect);
  }
  EndPaint(mHandle, &paint);
}

}  // namespace pointalk::target
