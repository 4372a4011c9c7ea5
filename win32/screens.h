// The screens, as far as our own windows need to know them.
#pragma once

#include <windows.h>

namespace pointalk::win32 {

// The scale of the screen that one of our own windows is on, in dots per inch.
UINT ScaleOf(HWND window);

// How much of that screen windows can have from left to right, in pixels.
LONG RoomFor(HWND window);

// Where that of the first screen begins.
POINT TopLeftOfScreen();

// The questions above, as a window asks them.
struct ScreenQuestions {
  decltype(&ScaleOf) scaleOf = &ScaleOf;
  decltype(&RoomFor) roomFor = &RoomFor;
  decltype(&TopLeftOfScreen) topLeft = &TopLeftOfScreen;
};

}  // namespace pointalk::win32
