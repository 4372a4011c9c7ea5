// The end of the program waits for what is being said.
#pragma once

#include <windows.h>

namespace pointalk::win32 {

// Handles messages that wait, a thousand at most, but drops what was posted to the form's window: its events
// come too late.
void HandleWithoutForm(HWND form);

// Returns once nothing is said any more, or after so many milliseconds. Messages are handled meanwhile, since
// a control may need them to notice that it is done, and so that the end of the session is told.
template <typename Question> void HearOut(HWND form, Question isSpeaking, DWORD limit) {
  constexpr DWORD kLook = 20;  // milliseconds
  for (const ULONGLONG end = GetTickCount64() + limit; isSpeaking() && GetTickCount64() < end;) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, kLook, QS_ALLINPUT);
    HandleWithoutForm(form);
  }
}

}  // namespace pointalk::win32
