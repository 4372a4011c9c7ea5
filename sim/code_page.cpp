#include "sim/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace pointalk::sim {
namespace {

// Bytes 0x80 to 0x9F; all others stand for the character of the same number.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t CharacterOf(std::byte byte) {
  const auto code = std::to_integer<std::uint8_t>(byte);
  return code >= 0x80 && code <= 0x9F ? kUpperControls[code - 0x80u] : code;
}

std::byte ByteOf(char16_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<std::byte>(character);
  const auto* const found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  return found == kUpperControls.end() ? std::byte{'?'}
                                       : static_cast<std::byte>(0x80 + (found - kUpperControls.begin()));
}

}  // namespace

Text ThroughAnsi(TextView text) {
  Text result(text);
  for (char16_t& character : result) {
    if (character >= 0x80) character = CharacterOf(ByteOf(character));
  }
  return result;
}

Text SimAnsi::ToText(std::span<const std::byte> bytes) {
  Text text(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(), CharacterOf);
  return text;
}

std::vector<std::byte> SimAnsi::ToBytes(TextView text) {
  std::vector<std::byte> bytes(text.size());
  std::transform(text.begin(), text.end(), bytes.begin(), ByteOf);
  return bytes;
}

}  // namespace pointalk::sim
