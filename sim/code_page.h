// The simulated machine's ANSI code page, Windows-1252. The five bytes that it leaves undefined stand for the
// control characters of the same number.
#pragma once

#include "platform/ansi.h"
#include "text/text.h"

namespace pointalk::sim {

// A text as it comes out at the other end of an 8-bit interface: characters that the code page lacks become
// "?".
Text ThroughAnsi(TextView text);

class SimAnsi final : public AnsiCodePage {
 public:
  Text ToText(std::span<const std::byte> bytes) override;
  std::vector<std::byte> ToBytes(TextView text) override;
};

}  // namespace pointalk::sim
