#include "win32/patience.h"

#include <tuple>
#include <utility>

namespace pointalk::win32 {

DWORD ThreadUnderPointer() {
  POINT pointer{};
  GetCursorPos(&pointer);
  return GetWindowThreadProcessId(WindowFromPoint(pointer), nullptr);
}

bool Patience::MayAsk(HWND window) {
  if (AllAnswer()) return true;
  const auto found = probes_.find(GetWindowThreadProcessId(window, nullptr));
  if (found == probes_.end()) return true;
  const Probe& probe = *found->second;
  if (!probe.answered && IsWindow(probe.window)) return false;
  probes_.erase(found);
  return true;
}

// The probe is an empty message that is sent without waiting: the thread answers it when it next looks at its
// messages, and the answer comes in with ours.
void Patience::RanOver(HWND window) {
  const DWORD thread = GetWindowThreadProcessId(window, nullptr);
  if (thread == 0) return;
  auto probe = std::make_shared<Probe>();
  probe->window = window;
  auto kept = std::make_unique<std::shared_ptr<Probe>>(probe);
  if (!SendMessageCallbackW(window, WM_NULL, 0, 0, &OnAnswer, reinterpret_cast<ULONG_PTR>(kept.get())))
    return;
  std::ignore = kept.release();  // OnAnswer takes it
  probes_[thread] = std::move(probe);
}

void CALLBACK Patience::OnAnswer(HWND, UINT, ULONG_PTR probe, LRESULT) {
  const std::unique_ptr<std::shared_ptr<Probe>> kept(reinterpret_cast<std::shared_ptr<Probe>*>(probe));
  (*kept)->answered = true;
}

}  // namespace pointalk::win32
