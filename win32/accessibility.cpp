#include "win32/accessibility.h"

#include <oleacc.h>

#include <algorithm>
#include <utility>

#include "win32/ansi.h"
#include "win32/sent_messages.h"
#include "win32/wide_text.h"
#include "win32/window_handles.h"

namespace pointalk::win32 {
namespace {

// Most objects answer within the first wait, which is cheap. The second handles messages that other threads
// send to this one's windows: the object asked may be one of our own, or its program may need an answer of
// ours first. No event of the form comes in.
constexpr DWORD kQuickWait = 10;             // milliseconds
constexpr DWORD kPumpingWait = 240;          // milliseconds
constexpr DWORD kPointerCheckInterval = 30;  // milliseconds between two looks at the pointer
constexpr DWORD kWaitAfterLeaving = 90;      // milliseconds that are waited although the pointer has left

constexpr std::size_t kMostAbandoned = 4;
constexpr UINT kLongestRole = 1024;  // characters

// Waits for an event, but ends early when the pointer has left the thread's windows, since what is under it
// now waits to be named. Not at once: on a busy machine healthy objects are slow as well.
bool PumpWhilePointedAt(DWORD thread, HANDLE event) {
  for (DWORD waited = kPointerCheckInterval; waited <= kPumpingWait; waited += kPointerCheckInterval) {
    if (AwaitServingSent(event, kPointerCheckInterval)) return true;
    if (waited >= kWaitAfterLeaving && ThreadUnderPointer() != thread) return false;
  }
  return false;
}

}  // namespace

std::optional<AccessibleFacts> WinAccessibility::ObjectAt(Point screen) {
  ForgetReturned();
  if (!MayAsk(screen) || !HaveWorker()) return std::nullopt;
  worker_->Ask(screen);
  if (worker_->AnswersWithin(kQuickWait)) return worker_->TakeAnswer();
  const HWND window = WindowFromPoint({screen.x, screen.y});
  const DWORD thread = GetWindowThreadProcessId(window, nullptr);
  if (PumpWhilePointedAt(thread, worker_->AnswerEvent())) return worker_->TakeAnswer();
  unresponsiveThreads_.TimedOut(window);
  std::optional<AccessibleFacts> soFar = worker_->TakeAnswer();
  abandoned_.push_back({std::move(worker_), window, thread});
  return soFar;
}

// A thread may answer messages and still never answer the earlier question, so it must have answered both.
bool WinAccessibility::MayAsk(Point screen) {
  if (abandoned_.empty() && unresponsiveThreads_.AllAnswer()) return true;
  const HWND window = WindowFromPoint({screen.x, screen.y});
  const DWORD thread = GetWindowThreadProcessId(window, nullptr);
  return unresponsiveThreads_.MayAsk(window) &&
         std::none_of(abandoned_.begin(), abandoned_.end(),
                      [thread](const Abandoned& left) { return left.thread == thread; });
}

bool WinAccessibility::HaveWorker() {
  if (!worker_ && abandoned_.size() < kMostAbandoned) worker_ = ObjectWorker::Start();
  return worker_ != nullptr;
}

void WinAccessibility::ForgetReturned() {
  std::erase_if(abandoned_, [](const Abandoned& left) { return left.worker->IsBack(); });
}

bool WinAccessibility::QueryPending(WindowHandle window) {
  ForgetReturned();
  return std::any_of(abandoned_.begin(), abandoned_.end(),
                     [window](const Abandoned& left) { return FromWindow(left.window) == window; });
}

Text WinAccessibility::RoleText(std::int32_t role, int capacity) {
  if (capacity <= 0) return {};
  wchar_t text[kLongestRole] = {};
  const UINT length = GetRoleTextW(static_cast<DWORD>(role), text, kLongestRole);
  return ThroughAnsi(FromWide({text, std::min(length, kLongestRole)}))
      .substr(0, static_cast<std::size_t>(capacity));
}

}  // namespace pointalk::win32
