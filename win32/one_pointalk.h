// One Pointalk in a session of Windows, whichever folder it was started from and however wide it is.
#pragma once

#include <windows.h>

namespace pointalk::win32 {

// Whether this process is the one, which it then is until it ends. Otherwise the one that runs has come to
// the front, or did not answer within ten seconds, and this process is to end. One that is ending is waited
// for.
bool BecomeTheOne();

// What a second start finds the one by: from now on, and no longer.
void ShowToSecondStarts(HWND panel);
void HideFromSecondStarts(HWND panel);

// The message with which a second start asks a panel to come to the front, and the panel's answer to it.
UINT ComeForwardMessage();
LRESULT AnswerToSecondStart(HWND panel);

}  // namespace pointalk::win32
