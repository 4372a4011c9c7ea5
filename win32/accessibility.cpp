#include "win32/accessibility.h"

#include <oleacc.h>

#include <algorithm>
#include <utility>

#include "win32/ansi.h"
#include "win32/counter.h"
#include "win32/sent_messages.h"
#include "win32/wide_text.h"
#include "win32/window_handles.h"

namespace pointalk::win32 {
namespace {

// Most objects answer within the first wait, which is cheap. After that the messages are handled that other
// threads send to this one's windows: the object asked may be one of our own, or its program may need an
// answer of ours first. No event of the form comes in.
constexpr DWORD kQuestionLimit = 250;        // milliseconds, for all of a question
constexpr DWORD kQuickWait = 10;             // milliseconds
constexpr DWORD kPointerCheckInterval = 30;  // milliseconds between two looks at the pointer
constexpr DWORD kWaitAfterLeaving = 100;     // milliseconds of the limit, although the pointer has left

constexpr std::size_t kMostAbandoned = 4;
constexpr UINT kLongestRole = 1024;  // characters

// Waits for an event, but ends early when the pointer has left the thread's windows, since what is under it
// now waits to be named. Not at once: on a busy machine healthy objects are slow as well.
bool PumpWhilePointedAt(DWORD thread, HANDLE event, const Deadline& deadline) {
  do {
    if (AwaitServingSent(event, std::min(deadline.Left(), kPointerCheckInterval))) return true;
    const bool mayLeave = deadline.Left() <= kQuestionLimit - kWaitAfterLeaving;
    if (mayLeave && ThreadUnderPointer() != thread) return false;
  } while (deadline.Left() > 0);
  return false;
}

}  // namespace

std::optional<AccessibleFacts> WinAccessibility::ObjectAt(Point screen) {
  ForgetReturned();
  if (!MayAsk(screen) || !HaveWorker()) return std::nullopt;
  const Deadline deadline(kQuestionLimit);
  worker_->Ask(screen);
  if (worker_->AnswersWithin(kQuickWait)) return TakeAnswer();
  const HWND window = WindowFromPhysicalPoint({screen.x, screen.y});
  const DWORD thread = GetWindowThreadProcessId(window, nullptr);
  if (PumpWhilePointedAt(thread, worker_->AnswerEvent(), deadline)) return TakeAnswer();
  unresponsiveThreads_.TimedOut(window);
  std::optional<AccessibleFacts> soFar = worker_->TakeAnswer().facts;
  abandoned_.push_back({std::move(worker_), window, thread});
  return soFar;
}

// What the worker noticed is remembered here, so that the messages to the same window do not cost another
// limit.
std::optional<AccessibleFacts> WinAccessibility::TakeAnswer() {
  ObjectAnswer answer = worker_->TakeAnswer();
  if (answer.unresponsive != nullptr) unresponsiveThreads_.TimedOut(answer.unresponsive);
  return std::move(answer.facts);
}

// A thread may answer messages and still never answer the earlier question, so it must have answered both.
bool WinAccessibility::MayAsk(Point screen) {
  if (abandoned_.empty() && unresponsiveThreads_.AllAnswer()) return true;
  const HWND window = WindowFromPhysicalPoint({screen.x, screen.y});
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
