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

// Writes as much of the text as fits into capacity units of a buffer; the end mark only where it fits.
template <class Unit> void Fill(Unit* buffer, std::size_t capacity, std::basic_string_view<Unit> text) {
  const std::size_t count = std::min(capacity, text.size());
  std::memcpy(buffer, text.data(), count * sizeof(Unit));
  if (count < capacity) buffer[count] = 0;
}

// Wine 8 hands EM_GETLINE from another process over with its capacity lost: the two words at the begin of the
// block that it made for the line, the sender's capacity and a copy of it where the message points, are left
// to chance. The control then takes the copy at its word, and the other one decides how many bytes go back,
// which may end the thread. The block's size tells the capacity again. Elsewhere no heap block begins a word
// before the line. An ANSI window gets a copy of the line's buffer to fill, so nothing can be done for it: on
// Wine its thread may end.
void RestoreLineCapacity(LPARAM line) {
  auto* words = reinterpret_cast<WORD*>(line) - 1;
  if (line % sizeof(DWORD) != sizeof(WORD) || !HeapValidate(GetProcessHeap(), 0, words)) return;
  const SIZE_T size = HeapSize(GetProcessHeap(), 0, words);
  words[0] = words[1] = static_cast<WORD>(size / sizeof(WCHAR) - 1);
}

}  // namespace

TargetWindow::TargetWindow(std::wstring name, std::wstring base, UiThread& thread, CommandRunner runner)
    : name_(std::move(name)), base_(std::move(base)), thread_(thread), runner_(std::move(runner)) {
  elements_->behaviour = behaviour_;
}

void TargetWindow::Adopt(HWND handle, bool keepAtBottom) {
  handle_ = handle;
  keepAtBottom_ = keepAtBottom;
  unicode_ = IsWindowUnicode(handle) != 0;
  SetPropW(handle, kProperty, this);
  const auto procedure = reinterpret_cast<LONG_PTR>(&TargetWindow::Procedure);
  previous_ = reinterpret_cast<WNDPROC>(unicode_ ? SetWindowLongPtrW(handle, GWLP_WNDPROC, procedure)
                                                 : SetWindowLongPtrA(handle, GWLP_WNDPROC, procedure));
}

std::string TargetWindow::Raise() {
  SetWindowPos(handle_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  return Description();
}

std::string TargetWindow::Show() {
  SetWindowPos(handle_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  UpdateWindow(handle_);
  return Description();
}

Element& TargetWindow::ElementAt(LONG id) {
  if (!object_) {
    object_ = new AccessibleObject(elements_, CHILDID_SELF);
    elements_->elements[CHILDID_SELF];
  }
  InvalidateRect(handle_, nullptr, TRUE);
  return elements_->elements[id];
}

void TargetWindow::ForgetElements() {
  elements_->elements.clear();
  if (object_) object_->Release();
  object_ = nullptr;
  InvalidateRect(handle_, nullptr, TRUE);
}

std::string TargetWindow::Description() const {
  std::array<wchar_t, 256> className{};
  GetClassNameW(handle_, className.data(), static_cast<int>(className.size()));
  RECT rect{};
  GetWindowRect(handle_, &rect);
  return JsonObject()
      .Text("name", name_)
      .Number("hwnd", reinterpret_cast<LONG_PTR>(handle_))
      .Text("class", className.data())
      .Rect("rect", rect)
      .Number("thread", thread_.Id())
      .Flag("unicode", unicode_)
      .Line();
}

LRESULT CALLBACK TargetWindow::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* window = static_cast<TargetWindow*>(GetPropW(handle, kProperty));
  if (!window) return DefWindowProcW(handle, message, wParam, lParam);
  return window->Answer(message, wParam, lParam);
}

LRESULT TargetWindow::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
  // What a control sends itself while it answers another program is its own business and not counted.
  int& depth = thread_.AnswerDepth();
  if (depth > 0 || !InSendMessage()) return AnswerAsBuilt(message, wParam, lParam);
  ++depth;
  const LRESULT result = AnswerStranger(message, wParam, lParam);
  --depth;
  return result;
}

LRESULT TargetWindow::AnswerStranger(UINT message, WPARAM wParam, LPARAM lParam) {
  behaviour_->Count(message);
  const UseOfGivenMemory use(message);
  if (message == EM_GETLINE && unicode_) RestoreLineCapacity(lParam);
  if (const auto rule = behaviour_->Find(message)) return AnswerByRule(*rule, message, wParam, lParam);
  return AnswerAsBuilt(message, wParam, lParam);
}

LRESULT TargetWindow::AnswerByRule(const Rule& rule, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (rule.kind) {
    case Rule::Kind::kDie: Die();
    case Rule::Kind::kResult: return rule.result;
    case Rule::Kind::kDelay: Sleep(rule.milliseconds); return AnswerAsBuilt(message, wParam, lParam);
    case Rule::Kind::kHold: behaviour_->WaitWhileHeld(message); return AnswerAsBuilt(message, wParam, lParam);
    case Rule::Kind::kText: return AnswerText(rule, message, wParam, lParam);
    case Rule::Kind::kHit: {
      const LRESULT result = AnswerAsBuilt(message, wParam, lParam);
      auto* hit = reinterpret_cast<LVHITTESTINFO*>(lParam);
      hit->iItem = rule.item;
      hit->flags = rule.flags;
      return result;
    }
    case Rule::Kind::kThen: {
      const LRESULT result = AnswerAsBuilt(message, wParam, lParam);
      runner_(rule.command);
      return result;
    }
  }
  return 0;
}

LRESULT TargetWindow::AnswerText(const Rule& rule, UINT message, WPARAM wParam, LPARAM lParam) {
  const std::string ansi = ToAnsi(rule.text);
  const auto fill = [&](LPARAM buffer, std::size_t capacity, bool wide) {
    if (wide)
      Fill(reinterpret_cast<wchar_t*>(buffer), capacity, std::wstring_view(rule.text));
    else
      Fill(reinterpret_cast<char*>(buffer), capacity, std::string_view(ansi));
  };
  switch (message) {
    case WM_GETTEXT: fill(lParam, wParam, unicode_); break;
    case EM_GETLINE: fill(lParam, *reinterpret_cast<const WORD*>(lParam), unicode_); break;
    case LB_GETTEXT: {
      // The system made a buffer for the length that it was told itself, so the true one is what surely fits.
      const LRESULT length = CallPrevious(LB_GETTEXTLEN, wParam, 0);
      if (length >= 0) fill(lParam, static_cast<std::size_t>(length) + 1, unicode_);
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
        if (object_ && static_cast<LONG>(lParam) == static_cast<LONG>(OBJID_CLIENT)) {
          return LresultFromObject(__uuidof(IAccessible), wParam, object_);
        }
        break;
      case WM_WINDOWPOSCHANGING:
        if (keepAtBottom_) {
          auto* place = reinterpret_cast<WINDOWPOS*>(lParam);
          place->hwndInsertAfter = HWND_BOTTOM;
          place->flags &= ~static_cast<UINT>(SWP_NOZORDER);
        }
        break;
      case WM_PAINT:
        if (base_.empty()) Paint();
        break;
      default: break;
    }
    return CallPrevious(message, wParam, lParam);
  }();
  if (message == WM_NCDESTROY) {
    ForgetElements();
    RemovePropW(handle_, kProperty);
  }
  return result;
}

LRESULT TargetWindow::CallPrevious(UINT message, WPARAM wParam, LPARAM lParam) {
  return unicode_ ? CallWindowProcW(previous_, handle_, message, wParam, lParam)
                  : CallWindowProcA(previous_, handle_, message, wParam, lParam);
}

void TargetWindow::Paint() {
  PAINTSTRUCT paint;
  const HDC context = BeginPaint(handle_, &paint);
  SelectObject(context, GetStockObject(DEFAULT_GUI_FONT));
  SetBkMode(context, TRANSPARENT);
  const auto draw = [&](const std::wstring& text, RECT rect) {
    DrawTextW(context, text.substr(0, 80).c_str(), -1, &rect, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
  };
  if (elements_->elements.empty() && (GetWindowLongPtrW(handle_, GWL_STYLE) & WS_CAPTION) != WS_CAPTION) {
    RECT client{};
    GetClientRect(handle_, &client);
    std::array<wchar_t, 80> title{};
    GetWindowTextW(handle_, title.data(), static_cast<int>(title.size()));
    draw(title.data(), client);
  }
  for (const auto& [id, element] : elements_->elements) {
    if (id == CHILDID_SELF) continue;
    RECT rect = element.rect;
    MapWindowPoints(nullptr, handle_, reinterpret_cast<POINT*>(&rect), 2);
    FrameRect(context, &rect, static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH)));
    draw(element.name.value_or(L""), rect);
  }
  EndPaint(handle_, &paint);
}

}  // namespace pointalk::target
