#include "wine/heard/utf8.h"

namespace pointalk::wine {

CodePoint CodePointAt(std::u16string_view text, std::size_t at) {
  const char16_t first = text[at];
  if (first < 0xD800 || first > 0xDBFF || at + 1 >= text.size()) return {first, 1};
  const char16_t second = text[at + 1];
  if (second < 0xDC00 || second > 0xDFFF) return {first, 1};
  return {0x10000 + ((static_cast<char32_t>(first) - 0xD800) << 10) + (second - 0xDC00U), 2};
}

void AppendUtf8(std::string& bytes, char32_t value) {
  const auto byte = [&bytes](char32_t bits) { bytes += static_cast<char>(bits); };
  if (value < 0x80) {
    byte(value);
  } else if (value < 0x800) {
    byte(0xC0 | (value >> 6));
    byte(0x80 | (value & 0x3F));
  } else if (value < 0x10000) {
    byte(0xE0 | (value >> 12));
    byte(0x80 | ((value >> 6) & 0x3F));
    byte(0x80 | (value & 0x3F));
  } else {
    byte(0xF0 | (value >> 18));
    byte(0x80 | ((value >> 12) & 0x3F));
    byte(0x80 | ((value >> 6) & 0x3F));
    byte(0x80 | (value & 0x3F));
  }
}

}  // namespace pointalk::wine
