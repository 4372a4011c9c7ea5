#include "win32/mouse_reports.h"

namespace pointalk::win32 {
namespace {

constexpr UINT kCheckInterval = 1000;  // milliseconds

// The hook is called before the system takes a press into account, which may take so many milliseconds.
constexpr DWORD kPressSettles = 100;

// A hook is called with no argument that tells for whom. Written and read by the hook's thread alone.
MouseReports* watching = nullptr;

DoubleClicks::Limits SystemLimits() {
  return {GetDoubleClickTime(), GetSystemMetrics(SM_CXDOUBLECLK), GetSystemMetrics(SM_CYDOUBLECLK)};
}

}  // namespace

int LeftButton() { return GetSystemMetrics(SM_SWAPBUTTON) != 0 ? VK_RBUTTON : VK_LBUTTON; }

bool MouseReports::Start() {
  if (thread_) return hook_ != nullptr;
  ready_.reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  if (!ready_) return false;
  stops_ = false;
  thread_.reset(CreateThread(nullptr, 0, &ThreadMain, this, 0, &threadId_));
  if (!thread_) return false;
  // The pointer must not stutter because something else keeps the processors busy.
  SetThreadPriority(thread_.get(), THREAD_PRIORITY_HIGHEST);
  WaitForSingleObject(ready_.get(), INFINITE);
  return hook_ != nullptr;
}

void MouseReports::Stop() {
  if (!thread_) return;
  stops_ = true;
  PostThreadMessageW(threadId_, WM_NULL, 0, 0);  // where its queue is full, the timer wakes the thread
  WaitForSingleObject(thread_.get(), INFINITE);
  thread_.reset();
}

DWORD WINAPI MouseReports::ThreadMain(void* reports) {
  static_cast<MouseReports*>(reports)->Watch();
  return 0;
}

void MouseReports::Watch() {
  watching = this;
  MSG message;
  PeekMessageW(&message, nullptr, WM_USER, WM_USER,
               PM_NOREMOVE);  // makes the queue that Stop's message will go to
  Install();
  SetEvent(ready_.get());
  const UINT_PTR timer = SetTimer(nullptr, 0, kCheckInterval, nullptr);
  while (!stops_) {
    GetMessageW(&message, nullptr, 0, 0);
    if (message.message != WM_TIMER) continue;
    CheckHook();
    CheckButton();
  }
  KillTimer(nullptr, timer);
  Remove();
}

bool MouseReports::Install() {
  hook_ = SetWindowsHookExW(WH_MOUSE_LL, &OnMouse, GetModuleHandleW(nullptr), 0);
  heard_ = false;
  GetPhysicalCursorPos(&lastPlace_);
  return hook_ != nullptr;
}

void MouseReports::Remove() {
  if (hook_ != nullptr) UnhookWindowsHookEx(hook_);
  hook_ = nullptr;
}

// The system drops a hook that was once too slow for it, and tells nobody. A pointer that moved without the
// hook being called gives it away; a program that puts the pointer elsewhere looks the same, and costs a
// needless renewal.
void MouseReports::CheckHook() {
  POINT place;
  if (!GetPhysicalCursorPos(&place)) return;
  const bool moved = place.x != lastPlace_.x || place.y != lastPlace_.y;
  if (hook_ == nullptr || (moved && !heard_)) {
    Remove();
    Install();
  }
  heard_ = false;
  lastPlace_ = place;
}

// A release over a window of more rights than ours is told to nobody. Only a button that is down by the
// messages is asked for: the question uses up the press that the form asks for.
void MouseReports::CheckButton() {
  if (!leftDown_ || GetTickCount() - leftPress_ < kPressSettles) return;
  if (GetAsyncKeyState(LeftButton()) < 0) return;
  leftDown_ = false;
  PostMessageW(form_, kMouseReport, WM_LBUTTONUP, 0);
}

LRESULT CALLBACK MouseReports::OnMouse(int code, WPARAM message, LPARAM details) {
  if (code == HC_ACTION) {
    watching->Note(static_cast<UINT>(message), *reinterpret_cast<const MSLLHOOKSTRUCT*>(details));
  }
  return CallNextHookEx(nullptr, code, message, details);
}

void MouseReports::Note(UINT message, const MSLLHOOKSTRUCT& details) {
  heard_ = true;
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP: break;
    default: return;
  }
  if (message == WM_LBUTTONDOWN) leftPress_ = GetTickCount();
  if (message == WM_LBUTTONDOWN || message == WM_LBUTTONUP) leftDown_ = message == WM_LBUTTONDOWN;
  const std::int32_t report = clicks_.Report(static_cast<std::int32_t>(message), {details.pt.x, details.pt.y},
                                             details.time, SystemLimits());
  PostMessageW(form_, kMouseReport, static_cast<WPARAM>(report), 0);
}

}  // namespace pointalk::win32
