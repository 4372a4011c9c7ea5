// The end of the program waits for what is being said.
#pragma once

#include <windows.h>

#include <algorithm>

#include "win32/counter.h"

namespace pointalk::win32 {

// Handles messages that wait, a thousand at most, but drops what was posted to the form's window: its events
// come too late.
void HandleWithoutForm(HWND form);

// Returns once nothing is said any more, or after so many milliseconds. `isSpeaking` is given the
// milliseconds that are left, and must not take longer. Messages are handled meanwhile, so that the end of
// the session is told.
template <typename Question> void HearOut(HWND form, Question isSpeaking, DWORD limit) {
  constexpr DWORD kBetweenLooks = 20;  // milliseconds
  const Deadline deadline(limit);
  for (DWORD left = limit; left > 0 && isSpeaking(left); left = deadline.Left()) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, std::min(deadline.Left(), kBetweenLooks), QS_ALLINPUT);
    HandleWithoutForm(form);
  }
}

}  // namespace pointalk::win32
