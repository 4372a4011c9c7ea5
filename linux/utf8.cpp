#include "linux/utf8.h"

#include <cstdint>
#include <optional>

namespace pointalk::linux {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLargest = 0x10FFFF;

bool IsHighHalf(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowHalf(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
bool IsHalf(char32_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }

void Append(char32_t character, std::string& out) {
  const auto tail = [&](int shift) { out += static_cast<char>(0x80 | (character >> shift & 0x3F)); };
  if (character < 0x80) {
    out += static_cast<char>(character);
  } else if (character < 0x800) {
    out += static_cast<char>(0xC0 | character >> 6);
    tail(0);
  } else if (character < 0x10000) {
    out += static_cast<char>(0xE0 | character >> 12);
    tail(6);
    tail(0);
  } else {
    out += static_cast<char>(0xF0 | character >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

void Append(char32_t character, Text& out) {
  if (character < 0x10000) {
    out += static_cast<char16_t>(character);
  } else {
    out += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
    out += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
  }
}

// The character that begins a text, with the bytes that it takes; no value where none does.
struct Decoded {
  char32_t character = 0;
  std::size_t bytes = 0;
};

std::optional<Decoded> Decode(std::string_view utf8) {
  const auto lead = static_cast<std::uint8_t>(utf8.front());
  if (lead < 0x80) return Decoded{lead, 1};
  const std::size_t bytes = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (lead < 0xC2 || lead > 0xF4 || utf8.size() < bytes) return std::nullopt;
  char32_t character = lead & (0xFFu >> (bytes + 1));
  for (std::size_t i = 1; i < bytes; ++i) {
    const auto next = static_cast<std::uint8_t>(utf8[i]);
    if ((next & 0xC0) != 0x80) return std::nullopt;
    character = character << 6 | (next & 0x3Fu);
  }
  if (character < kSmallest[bytes] || character > kLargest || IsHalf(character)) return std::nullopt;
  return Decoded{character, bytes};
}

}  // namespace

std::string ToUtf8(TextView text) {
  std::string utf8;
  utf8.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char32_t unit = text[i];
    if (IsHighHalf(unit) && i + 1 < text.size() && IsLowHalf(text[i + 1])) {
      Append(0x10000 + ((unit - 0xD800) << 10) + (text[i + 1] - 0xDC00u), utf8);
      ++i;
    } else {
      Append(IsHalf(unit) ? kReplacement : unit, utf8);
    }
  }
  return utf8;
}

Text FromUtf8(std::string_view utf8, std::size_t most) {
  Text text;
  while (!utf8.empty() && text.size() < most) {
    const Decoded next = Decode(utf8).value_or(Decoded{kReplacement, 1});
    if (next.character > 0xFFFF && text.size() + 1 == most) break;
    Append(next.character, text);
    utf8.remove_prefix(next.bytes);
  }
  return text;
}

}  // namespace pointalk::linux
