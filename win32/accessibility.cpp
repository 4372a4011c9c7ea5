#include "win32/accessibility.h"

#include <oleacc.h>

#include <algorithm>
#include <utility>

#include "win32/ansi.h"
#include "win32/wide_text.h"
#include "win32/window_handles.h"

namespace pointalk::win32 {
namespace {

// Most objects answer in the first stretch, which is cheap to wait for. In the second, messages that other
// threads send to this one's windows are handled meanwhile: the object asked may be one of our own, or its
// program may want something of us first. No event of the form comes in.
constexpr DWORD kDeafStretch = 10;      // milliseconds
constexpr DWORD kServingStretch = 240;  // milliseconds
constexpr DWORD kGlance = 30;           // milliseconds between two looks at the pointer
constexpr DWORD kLeftStretch = 90;      // milliseconds that are waited although the pointer has left

constexpr std::size_t kMostLeftBehind = 4;
constexpr UINT kLongestRole = 1024;  // characters

// Waits for an event; false when it does not come in time.
bool ServeUntil(HANDLE event, DWORD limit) {
  const ULONGLONG end = GetTickCount64() + limit;
  for (;;) {
    const ULONGLONG now = GetTickCount64();
    const DWORD left = now < end ? static_cast<DWORD>(end - now) : 0;
    const DWORD outcome = MsgWaitForMultipleObjects(1, &event, FALSE, left, QS_SENDMESSAGE);
    if (outcome != WAIT_OBJECT_0 + 1) return outcome == WAIT_OBJECT_0;
    MSG unused;
    PeekMessageW(&unused, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
  }
}

// The same, given up earlier when the pointer is not over the thread's windows any more: where it is now
// waits to be named. Not at once, for on a busy machine healthy objects are slow as well.
bool ServeWhilePointedAt(DWORD thread, HANDLE event) {
  for (DWORD waited = kGlance; waited <= kServingStretch; waited += kGlance) {
    if (ServeUntil(event, kGlance)) return true;
    if (waited >= kLeftStretch && ThreadUnderPointer() != thread) return false;
  }
  return false;
}

}  // namespace

std::optional<AccessibleFacts> WinAccessibility::ObjectAt(Point screen) {
  WelcomeBack();
  if (!MayAsk(screen) || !HaveWorker()) return std::nullopt;
  worker_->Ask(screen);
  if (worker_->AnswersWithin(kDeafStretch)) return worker_->TakeAnswer();
  const HWND window = WindowFromPoint({screen.x, screen.y});
  const DWORD thread = GetWindowThreadProcessId(window, nullptr);
  if (ServeWhilePointedAt(thread, worker_->AnswerEvent())) return worker_->TakeAnswer();
  patience_.RanOver(window);
  leftBehind_.push_back({std::move(worker_), window, thread});
  return std::nullopt;
}

// A thread may answer messages and never that question, so both have to be back.
bool WinAccessibility::MayAsk(Point screen) {
  if (leftBehind_.empty() && patience_.AllAnswer()) return true;
  const HWND window = WindowFromPoint({screen.x, screen.y});
  const DWORD thread = GetWindowThreadProcessId(window, nullptr);
  return patience_.MayAsk(window) &&
         std::none_of(leftBehind_.begin(), leftBehind_.end(),
                      [thread](const LeftBehind& left) { return left.thread == thread; });
}

bool WinAccessibility::HaveWorker() {
  if (!worker_ && leftBehind_.size() < kMostLeftBehind) worker_ = ObjectWorker::Start();
  return worker_ != nullptr;
}

void WinAccessibility::WelcomeBack() {
  std::erase_if(leftBehind_, [](const LeftBehind& left) { return left.worker->IsBack(); });
}

bool WinAccessibility::QueryStillOut(WindowHandle window) {
  WelcomeBack();
  return std::any_of(leftBehind_.begin(), leftBehind_.end(),
                     [window](const LeftBehind& left) { return FromWindow(left.window) == window; });
}

Text WinAccessibility::RoleText(std::int32_t role, int capacity) {
  if (capacity <= 0) return {};
  wchar_t text[kLongestRole] = {};
  const UINT length = GetRoleTextW(static_cast<DWORD>(role), text, kLongestRole);
  return ThroughAnsi(FromWide({text, std::min(length, kLongestRole)}))
      .substr(0, static_cast<std::size_t>(capacity));
}

}  // namespace pointalk::win32
