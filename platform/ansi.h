// Seam: the system's ANSI code page, for 8-bit texts in other processes' memory and in the registry.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "text/text.h"

namespace pointalk {

class AnsiCodePage {
 public:
  virtual ~AnsiCodePage() = default;

  // 8-bit text as UTF-16; every byte counts, NUL included. Empty on failure.
  virtual Text ToText(std::span<const std::byte> bytes) = 0;

  // UTF-16 as 8-bit text, without an ending NUL; a character that the code page lacks becomes "?".
  virtual std::vector<std::byte> ToBytes(TextView text) = 0;
};

}  // namespace pointalk
