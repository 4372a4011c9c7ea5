#include "wine/voice/spoken_text.h"

#include <algorithm>

#include "wine/heard/utf8.h"

namespace pointalk::wine {

namespace {

constexpr std::size_t kLongestPart = 400;

bool IsControl(char32_t value) { return value < 0x20 || (value >= 0x7F && value < 0xA0); }

bool IsBlankUnit(char16_t unit) { return unit == u' ' || unit == 0xA0 || IsControl(unit); }

bool EndsSentence(char16_t unit) { return unit == u'.' || unit == u'!' || unit == u'?' || unit == u'\n'; }

std::size_t EndOfPart(std::u16string_view text, std::size_t begin) {
  const std::size_t limit = begin + kLongestPart;
  if (limit >= text.size()) return text.size();
  for (std::size_t i = limit; i > begin + kLongestPart / 2; --i)
    if (EndsSentence(text[i - 1]) && IsBlankUnit(text[i])) return i;
  for (std::size_t i = limit; i > begin; --i)
    if (IsBlankUnit(text[i])) return i;
  const bool insidePair = CodePointAt(text, limit - 1).units == 2;
  return insidePair ? limit - 1 : limit;
}

}  // namespace

bool IsBlank(std::u16string_view text) { return std::all_of(text.begin(), text.end(), IsBlankUnit); }

std::vector<TextPart> PartsOf(std::u16string_view text) {
  std::vector<TextPart> parts;
  for (std::size_t begin = 0; begin < text.size(); begin = parts.back().end)
    parts.push_back({begin, EndOfPart(text, begin)});
  return parts;
}

std::string SpokenText(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size() + 1);
  for (std::size_t i = 0; i < text.size();) {
    const CodePoint point = CodePointAt(text, i);
    if (IsControl(point.value)) {
      bytes += ' ';
    } else if (IsSurrogate(point.value)) {
      AppendUtf8(bytes, 0xFFFD);
    } else {
      if (point.value == U'[' && !bytes.empty() && bytes.back() == '[') bytes += ' ';
      AppendUtf8(bytes, point.value);
    }
    i += point.units;
  }
  return bytes;
}

}  // namespace pointalk::wine
