// The system's ANSI code page. Whatever passes through the platform does so in 8 bits, as its oldest programs
// have it; only speech and the accessible name, description and value are spared.
#pragma once

#include <string>
#include <string_view>

#include "platform/ansi.h"

namespace pointalk::win32 {

// Every character counts, NULs included. One that the code page lacks becomes "?", never a similar letter.
// Empty on failure.
std::string Narrow(TextView text);
Text Widen(std::string_view bytes);

// What an 8-bit program sees of a text that the system keeps in Unicode.
Text ThroughAnsi(TextView text);

class WinAnsi final : public AnsiCodePage {
 public:
  Text ToText(std::span<const std::byte> bytes) override;
  std::vector<std::byte> ToBytes(TextView text) override;
};

}  // namespace pointalk::win32
