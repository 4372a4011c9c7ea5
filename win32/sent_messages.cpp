#include "win32/sent_messages.h"

#include <algorithm>
#include <optional>

#include "win32/counter.h"

namespace pointalk::win32 {
namespace {

// A thread that does not look at its messages for 5 s counts as hung, and others give up asking it.
constexpr DWORD kLook = 1'000;  // milliseconds

}  // namespace

bool AwaitServingSent(HANDLE event, DWORD limit) {
  std::optional<Deadline> deadline;
  if (limit != INFINITE) deadline.emplace(limit);
  for (;;) {
    const DWORD left = deadline ? deadline->Left() : INFINITE;
    const DWORD outcome = MsgWaitForMultipleObjects(1, &event, FALSE, std::min(left, kLook), QS_SENDMESSAGE);
    const bool goesOn = outcome == WAIT_OBJECT_0 + 1 || outcome == WAIT_TIMEOUT;
    if (!goesOn || left == 0) return outcome == WAIT_OBJECT_0;
    MSG unused;
    PeekMessageW(&unused, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
  }
}

}  // namespace pointalk::win32
