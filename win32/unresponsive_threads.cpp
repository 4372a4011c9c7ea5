#include "win32/unresponsive_threads.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace pointalk::win32 {
namespace {

constexpr ULONGLONG kRefreshInterval = 1000;  // milliseconds
constexpr std::size_t kMostThreads = 64;

BOOL CALLBACK TakeFirst(HWND window, LPARAM first) {
  *reinterpret_cast<HWND*>(first) = window;
  return FALSE;
}

// A window of the thread; null where it has none.
HWND AnyWindowOf(DWORD thread) {
  HWND first = nullptr;
  EnumThreadWindows(thread, &TakeFirst, reinterpret_cast<LPARAM>(&first));
  return first;
}

}  // namespace

DWORD ThreadUnderPointer() {
  POINT pointer{};
  GetPhysicalCursorPos(&pointer);
  return GetWindowThreadProcessId(WindowFromPhysicalPoint(pointer), nullptr);
}

bool ShowsUnresponsive(DWORD error) {
  return error != ERROR_ACCESS_DENIED && error != ERROR_INVALID_WINDOW_HANDLE;
}

Probe::Probe(DWORD thread, unsigned number)
    : thread_(thread), handle_(OpenThread(SYNCHRONIZE, FALSE, thread)), number_(number) {
  over_ = !handle_ && GetLastError() == ERROR_INVALID_PARAMETER;  // no such thread any more
}

bool Probe::IsOver() {
  if (!over_ && handle_) over_ = WaitForSingleObject(handle_.get(), 0) == WAIT_OBJECT_0;
  if (over_) handle_.reset();
  return over_;
}

bool Probe::IsPending() const {
  return window_ != nullptr && GetWindowThreadProcessId(window_, nullptr) == thread_;
}

bool Probe::Send(const std::shared_ptr<Probe>& probe, HWND window) {
  auto kept = std::make_unique<std::shared_ptr<Probe>>(probe);
  const auto data = reinterpret_cast<ULONG_PTR>(kept.get());
  if (window == nullptr || !SendMessageCallbackW(window, WM_NULL, 0, 0, &OnAnswer, data)) return false;
  std::ignore = kept.release();  // OnAnswer takes it
  probe->window_ = window;
  return true;
}

void CALLBACK Probe::OnAnswer(HWND, UINT, ULONG_PTR probe, LRESULT) {
  const std::unique_ptr<std::shared_ptr<Probe>> kept(reinterpret_cast<std::shared_ptr<Probe>*>(probe));
  (*kept)->over_ = true;
}

// The window's own thread, also where the window went while it was asked.
DWORD UnresponsiveThreads::ThreadOf(HWND window) const {
  const DWORD thread = GetWindowThreadProcessId(window, nullptr);
  return thread == 0 && window == asked_ ? askedThread_ : thread;
}

bool UnresponsiveThreads::MayAsk(HWND window) {
  if (window != asked_) {
    asked_ = window;
    askedThread_ = GetWindowThreadProcessId(window, nullptr);
  }
  if (AllAnswer()) return true;
  if (GetTickCount64() >= lastLook_ + kRefreshInterval) Refresh();
  const auto found = probes_.find(GetWindowThreadProcessId(window, nullptr));
  if (found == probes_.end()) return true;
  const std::shared_ptr<Probe>& probe = found->second;
  if (!probe->IsOver() && (probe->IsPending() || Probe::Send(probe, window))) return false;
  probes_.erase(found);
  return true;
}

void UnresponsiveThreads::TimedOut(HWND window) {
  const DWORD thread = ThreadOf(window);
  if (thread == 0) return;
  auto probe = std::make_shared<Probe>(thread, ++probesSent_);
  if (!Probe::Send(probe, window)) Probe::Send(probe, AnyWindowOf(thread));
  probes_[thread] = std::move(probe);
  if (probes_.size() <= kMostThreads) return;
  probes_.erase(std::min_element(probes_.begin(), probes_.end(), [](const auto& one, const auto& other) {
    return one.second->Number() < other.second->Number();
  }));
}

std::shared_ptr<Probe> UnresponsiveThreads::ProbeOf(HWND window) const {
  const auto found = probes_.find(ThreadOf(window));
  return found == probes_.end() ? nullptr : found->second;
}

void UnresponsiveThreads::Refresh() {
  lastLook_ = GetTickCount64();
  std::erase_if(probes_, [](const auto& entry) {
    const std::shared_ptr<Probe>& probe = entry.second;
    return probe->IsOver() || (!probe->IsPending() && !Probe::Send(probe, AnyWindowOf(entry.first)));
  });
}

}  // namespace pointalk::win32
