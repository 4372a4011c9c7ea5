// Where the program is.
#pragma once

#include <string>

namespace pointalk::win32 {

// Its folder, without a backslash at the end.
std::wstring ProgramFolderPath();

// A program that the system starts at log-on begins in the system's own folder. What it keeps in the current
// directory belongs beside it.
void LeaveSystemFolder();

}  // namespace pointalk::win32
