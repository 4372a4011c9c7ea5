// A text made ready for espeak-ng.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pointalk::wine {

// True for an empty text, and for one of blanks and control characters only.
bool IsBlank(std::u16string_view text);

struct TextPart {
  std::size_t begin;
  std::size_t end;
};

// Cuts a long text into parts of at most 400 units, so that speech begins soon and a cut-off text is not made
// to its end: after a sentence if one ends in the second half of the part, else at a blank, else where it
// must be, but never inside a surrogate pair. The parts cover the text.
std::vector<TextPart> PartsOf(std::u16string_view text);

// UTF-8 that espeak-ng speaks as it stands: control characters, which can be commands to it, become blanks,
// "[[", which opens phoneme names, is taken apart, and a lone surrogate becomes U+FFFD.
std::string SpokenText(std::u16string_view text);

}  // namespace pointalk::wine
