// The accessible object at a point, asked for within a time limit.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "platform/accessibility.h"
#include "win32/object_worker.h"
#include "win32/unresponsive_threads.h"

namespace pointalk::win32 {

class WinAccessibility final : public Accessibility {
 public:
  explicit WinAccessibility(UnresponsiveThreads& unresponsiveThreads)
      : unresponsiveThreads_(unresponsiveThreads) {}

  std::optional<AccessibleFacts> ObjectAt(Point screen) override;
  bool QueryPending(WindowHandle window) override;
  Text RoleText(std::int32_t role, int capacity) override;

 private:
  // A worker whose question timed out, and whom it asked.
  struct Abandoned {
    std::unique_ptr<ObjectWorker> worker;
    HWND window = nullptr;
    DWORD thread = 0;
  };

  bool MayAsk(Point screen);
  bool HaveWorker();
  std::optional<AccessibleFacts> TakeAnswer();
  void ForgetReturned();

  UnresponsiveThreads& unresponsiveThreads_;
  std::unique_ptr<ObjectWorker> worker_;  // idle between questions; null while there is none
  std::vector<Abandoned> abandoned_;
};

}  // namespace pointalk::win32
