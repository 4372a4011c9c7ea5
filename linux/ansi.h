// The 8-bit code page of the program's files. This system has none of its own; it is Windows-1252, so that
// files can be carried over from there.
#pragma once

#include <string>
#include <string_view>

#include "platform/ansi.h"

namespace pointalk::linux {

// Every character counts, NULs included.
std::string Narrow(TextView text);
Text Widen(std::string_view bytes);

class LinuxAnsi final : public AnsiCodePage {
 public:
  Text ToText(std::span<const std::byte> bytes) override;
  std::vector<std::byte> ToBytes(TextView text) override;
};

}  // namespace pointalk::linux
