// The code page Windows-1252, character by character. The five bytes that it leaves open stand for the
// control characters of the same number.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace pointalk {

// Bytes 0x80 to 0x9F; all others stand for the character of the same number.
inline constexpr std::array<char16_t, 32> kWindows1252Middle = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char16_t CharacterOf1252(std::byte byte) {
  const auto code = std::to_integer<std::uint8_t>(byte);
  return code >= 0x80 && code <= 0x9F ? kWindows1252Middle[code - 0x80u] : code;
}

// "?" for a character that the code page lacks.
constexpr std::byte ByteOf1252(char16_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<std::byte>(character);
  const auto* const found = std::find(kWindows1252Middle.begin(), kWindows1252Middle.end(), character);
  return found == kWindows1252Middle.end()
             ? std::byte{'?'}
             : static_cast<std::byte>(0x80 + (found - kWindows1252Middle.begin()));
}

}  // namespace pointalk
