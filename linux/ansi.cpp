#include "linux/ansi.h"

#include <algorithm>

#include "text/windows_1252.h"

namespace pointalk::linux {

std::string Narrow(TextView text) {
  std::string bytes(text.size(), '\0');
  std::transform(text.begin(), text.end(), bytes.begin(),
                 [](char16_t character) { return static_cast<char>(ByteOf1252(character)); });
  return bytes;
}

Text Widen(std::string_view bytes) {
  Text text(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](char byte) { return CharacterOf1252(static_cast<std::byte>(byte)); });
  return text;
}

Text LinuxAnsi::ToText(std::span<const std::byte> bytes) {
  return Widen({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::vector<std::byte> LinuxAnsi::ToBytes(TextView text) {
  const std::string bytes = Narrow(text);
  const auto* const first = reinterpret_cast<const std::byte*>(bytes.data());
  return {first, first + bytes.size()};
}

}  // namespace pointalk::linux
