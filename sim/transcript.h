// The transcript: one line for each step and each effect, as a rehearsal prints it.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "text/text.h"

namespace pointalk::sim {

// How a part of a line is written where its type alone does not tell. Texts are written as JSON strings,
// whole numbers as decimals.
struct Number {
  double value;
};  // at most 15 significant digits, never an exponent
struct Hexadecimal {
  std::uint32_t value;
};  // with "0x", without leading zeros
struct Bare {
  TextView text;
};  // without quotes
struct HexadecimalBytes {
  std::span<const std::byte> value;
};  // two digits a byte, in quotes

class Transcript {
 public:
  // A line: its parts, separated by spaces.
  template <typename... Parts> void Add(std::string_view what, const Parts&... parts) {
    text_ += what;
    ((text_ += ' ', Write(parts)), ...);
    text_ += '\n';
  }

  const std::string& Lines() const { return text_; }

  // Forgets the lines so far; the memory that they took is kept.
  void Clear() { text_.clear(); }

 private:
  void Write(std::string_view word) { text_ += word; }
  void Write(const char* word) { text_ += word; }
  void Write(std::integral auto number) { text_ += std::to_string(number); }
  void Write(TextView text);
  void Write(const Text& text) { Write(TextView(text)); }
  void Write(Number number);
  void Write(Hexadecimal number);
  void Write(Bare word);
  void Write(HexadecimalBytes bytes);

  std::string text_;
};

}  // namespace pointalk::sim
