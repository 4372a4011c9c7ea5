// Makes windows of the system's classes and of any other, and fills them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "wine/target/target_window.h"
#include "wine/target/text.h"

namespace pointalk::target {

// Loads the libraries whose classes the target offers.
void LoadControlClasses();

// The class whose procedure will answer for a `create` command, in lower case: a class of the system's, or
// the one that a class of our own is based on; empty for a window that is no control.
std::wstring BaseOf(const CommandLine& line);

// Makes the window of a `create` command on the calling thread, hidden still. Throws CommandError when the
// system refuses.
HWND MakeWindow(const CommandLine& line, const std::wstring& base, HWND parent);

// Gives a text field, or the edit of a combo box, a password character.
void ConcealText(HWND window, const std::wstring& base);

// Appends a drop-down menu to the window's menu bar.
void AppendMenuTo(HWND window, const std::wstring& title, const std::vector<std::wstring>& items);

}  // namespace pointalk::target
