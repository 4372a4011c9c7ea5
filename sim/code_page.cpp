#include "sim/code_page.h"

#include <algorithm>

#include "text/windows_1252.h"

namespace pointalk::sim {

Text ThroughAnsi(TextView text) {
  Text result(text);
  for (char16_t& character : result) {
    if (character >= 0x80) character = CharacterOf1252(ByteOf1252(character));
  }
  return result;
}

Text SimAnsi::ToText(std::span<const std::byte> bytes) {
  Text text(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(), CharacterOf1252);
  return text;
}

std::vector<std::byte> SimAnsi::ToBytes(TextView text) {
  std::vector<std::byte> bytes(text.size());
  std::transform(text.begin(), text.end(), bytes.begin(), ByteOf1252);
  return bytes;
}

}  // namespace pointalk::sim
