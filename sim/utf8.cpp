#include "sim/utf8.h"

#include <algorithm>

namespace pointalk::sim {
namespace {

// For a lone surrogate.
constexpr char16_t kReplacement = u'\uFFFD';

void AppendCharacter(char16_t character, std::string& out) {
  const unsigned code = character >= 0xD800 && character <= 0xDFFF ? kReplacement : character;
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | (code >> 6));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (code >> 12));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

// True when the character had to be escaped, and was.
bool AppendEscaped(unsigned code, std::string& out) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  switch (code) {
    case '"': out += "\\\""; return true;
    case '\\': out += "\\\\"; return true;
    case '\b': out += "\\b"; return true;
    case '\t': out += "\\t"; return true;
    case '\n': out += "\\n"; return true;
    case '\f': out += "\\f"; return true;
    case '\r': out += "\\r"; return true;
    default: break;
  }
  if (code >= 32) return false;
  out += "\\u00";
  out += kHexDigits[code >> 4];
  out += kHexDigits[code & 15];
  return true;
}

}  // namespace

bool HasSupplementaryCharacters(std::string_view utf8) {
  return std::any_of(utf8.begin(), utf8.end(), [](char c) { return static_cast<unsigned char>(c) >= 0xF0; });
}

Text FromUtf8(std::string_view utf8) {
  Text text;
  text.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const auto bits = [&](std::size_t offset) {
      return static_cast<unsigned char>(utf8[i + offset]) & 0x3Fu;
    };
    const unsigned lead = static_cast<unsigned char>(utf8[i]);
    if (lead < 0x80) {
      text += static_cast<char16_t>(lead);
      i += 1;
    } else if (lead < 0xE0) {
      text += static_cast<char16_t>((lead & 0x1F) << 6 | bits(1));
      i += 2;
    } else {
      text += static_cast<char16_t>((lead & 0x0F) << 12 | bits(1) << 6 | bits(2));
      i += 3;
    }
  }
  return text;
}

void AppendUtf8(TextView text, std::string& out) {
  for (const char16_t character : text) AppendCharacter(character, out);
}

void AppendQuoted(std::string_view utf8, std::string& out) {
  out += '"';
  for (const char c : utf8) {
    if (!AppendEscaped(static_cast<unsigned char>(c), out)) out += c;
  }
  out += '"';
}

void AppendQuoted(TextView text, std::string& out) {
  out += '"';
  for (const char16_t character : text) {
    if (!AppendEscaped(character, out)) AppendCharacter(character, out);
  }
  out += '"';
}

}  // namespace pointalk::sim
