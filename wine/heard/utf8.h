// UTF-16 as the system hands it over, read code point by code point and written as UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pointalk::wine {

struct CodePoint {
  char32_t value;     // a lone surrogate stands for itself
  std::size_t units;  // 1 or 2
};

inline bool IsSurrogate(char32_t value) { return value >= 0xD800 && value <= 0xDFFF; }

// `at` must be below text.size().
CodePoint CodePointAt(std::u16string_view text, std::size_t at);

void AppendUtf8(std::string& bytes, char32_t value);

}  // namespace pointalk::wine
