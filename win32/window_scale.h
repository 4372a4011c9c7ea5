// Windows whose programs know nothing of the screen's scale.
#pragma once

#include <windows.h>

namespace pointalk::win32 {

// Such a program counts in pixels of its own, which the system enlarges, and so do its controls when they are
// asked by a point. Gives a point of the window's inside, in real pixels, as the window counts.
POINT AsWindowCounts(HWND window, POINT client);

}  // namespace pointalk::win32
