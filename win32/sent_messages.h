// Waiting without being in the way of other programs.
#pragma once

#include <windows.h>

namespace pointalk::win32 {

// Waits for an event, a thread's end or the like, and handles meanwhile what other threads send to this one's
// windows. What is posted, and so every event of the form, waits. False once so many milliseconds are over.
bool AwaitServingSent(HANDLE event, DWORD limit);

}  // namespace pointalk::win32
