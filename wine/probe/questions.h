// The questions that one program can put to another's windows, one line in and one JSON line out. Windows are
// given as numbers, points as screen pixels, times in milliseconds.
//
//   at X Y                        the window there: hwnd, class, process, parent
//   pointer                       where it is
//   key CODE                      whether that key or button is down
//   find CLASS TITLE              hwnd, and its first child
//   windows [HWND]                the visible windows below one, or the top-level ones: hwnd, class, title,
//                                 rect
//   focus                         the foreground window and the one in it that has the keyboard, both like
//                                 windows'
//   clipboard                     its text; none when there is no text in it
//   place HWND L,T,R,B            shows a window there, without the keyboard focus
//   object X Y                    the accessible object there: result codes, child, name, value, description,
//                                 role
//   send HWND MESSAGE WPARAM LPARAM [LIMIT]
//   text HWND CAPACITY            WM_GETTEXT
//   line HWND LINE CAPACITY       EM_GETLINE
//   listtext HWND ITEM CAPACITY   LB_GETTEXT
//   hit HWND X Y [keep=1]         LVM_SUBITEMHITTEST; keep leaves the record in the other process
//   label HWND ITEM [capacity=N]  LVM_GETITEMA
//   resources HWND                what its process holds: handles, windows, GDI and USER objects (0 where the
//                                 system does not count these)
//   character HWND X Y            EM_CHARFROMPOS with a record, as rich edits want it
//   quit
//
// Every message has a time limit of two seconds unless another is given, and "answered" tells whether it
// held.
#pragma once

#include <string>

#include "wine/target/text.h"

namespace pointalk::probe {

// Throws CommandError.
std::string Answer(const target::CommandLine& line);

// The `object` question.
std::string AnswerObject(LONG x, LONG y);

// The `windows`, `focus` and `place` questions.
std::string AnswerWindows(HWND parent);
std::string AnswerFocus();
std::string AnswerPlace(HWND window, const RECT& rect);

// The `resources` question.
std::string AnswerResources(HWND window);

// The `clipboard` question.
std::string AnswerClipboard();

}  // namespace pointalk::probe
