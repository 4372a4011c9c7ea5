// The program's texts as the system's wide strings and back: both are UTF-16.
#pragma once

#include <string>
#include <string_view>

#include "text/text.h"

namespace pointalk::win32 {

inline std::wstring Wide(TextView text) { return {text.begin(), text.end()}; }

inline Text FromWide(std::wstring_view wide) { return {wide.begin(), wide.end()}; }

}  // namespace pointalk::win32
