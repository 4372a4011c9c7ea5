#include "win32/sent_messages.h"

#include <algorithm>

namespace pointalk::win32 {
namespace {

// A thread that does not look at its messages for 5 s counts as hung, and others give up asking it.
constexpr DWORD kLook = 1'000;  // milliseconds

DWORD Left(ULONGLONG begin, DWORD limit) {
  if (limit == INFINITE) return INFINITE;
  const ULONGLONG past = GetTickCount64() - begin;
  return past < limit ? limit - static_cast<DWORD>(past) : 0;
}

}  // namespace

bool AwaitServingSent(HANDLE event, DWORD limit) {
  const ULONGLONG begin = GetTickCount64();
  for (;;) {
    const DWORD left = Left(begin, limit);
    const DWORD outcome = MsgWaitForMultipleObjects(1, &event, FALSE, std::min(left, kLook), QS_SENDMESSAGE);
    const bool goesOn = outcome == WAIT_OBJECT_0 + 1 || (outcome == WAIT_TIMEOUT && left > kLook);
    if (!goesOn) return outcome == WAIT_OBJECT_0;
    MSG unused;
    PeekMessageW(&unused, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
  }
}

}  // namespace pointalk::win32
