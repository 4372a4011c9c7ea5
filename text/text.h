// The text type of the whole program.
#pragma once

#include <string>
#include <string_view>

namespace pointalk {

// UTF-16, so that accessible names reach the voice as other programs gave them. 8-bit text exists only
// behind the seam, which converts it once by the system's ANSI code page.
using Text = std::u16string;
using TextView = std::u16string_view;

}  // namespace pointalk
