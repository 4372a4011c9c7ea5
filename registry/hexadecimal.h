// Numbers squeezed into 16 bits by way of their hexadecimal text.
// Kept: nothing reads it.
#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace pointalk {

// "&H" and the digits of the number's 32 bits, in capitals, without leading zeros.
Text HexadecimalText(std::int32_t number);

// Up to four digits are the 16 bits of a signed number, up to eight the 32 bits of one. No value for any
// other text, and for a number beyond 16 bits.
std::optional<std::int16_t> ReadHexadecimal(TextView text);

// A number through its hexadecimal text: 32768 to 65535 become negative. No value below -32768 and above
// 65535; one with a fraction is rounded, halves to even.
std::optional<std::int16_t> WordFromWhole(std::int32_t number);
std::optional<std::int16_t> WordFromNumber(double number);

}  // namespace pointalk
