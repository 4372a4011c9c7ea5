// The text of an edit or rich-edit control, laid out in lines of characters that are all of one size.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/types.h"
#include "text/text.h"

namespace pointalk::sim {

// Character indices count every character of the text, those of the line ends included.
class Edit {
 public:
  struct Place {
    std::int32_t line = 0;
    std::int32_t character = 0;
  };

  struct Layout {
    std::int32_t charWidth = 8;    // pixels
    std::int32_t lineHeight = 16;  // pixels
  };

  // Who may know the text: everybody who asks, or only who types it.
  enum class Reading { kOpen, kPassword };

  // The text as the code page has it; lineEnd parts its lines.
  Edit(Text text, Layout layout, TextView lineEnd, Reading reading = Reading::kOpen);

  bool HoldsPassword() const { return reading_ == Reading::kPassword; }

  // The character nearest to a client point; no value in an empty text.
  std::optional<Place> CharacterFromPoint(Point client) const;

  // The last line for an index past the text, the first for a negative one.
  std::int32_t LineFromCharacter(std::int32_t character) const;

  // Of the line that holds a character, without its line end; 0 for an index that is not in the text or at
  // its end.
  std::int32_t LineLength(std::int32_t character) const;

  // Without its line end; empty for a line that does not exist.
  TextView Line(std::int32_t line) const;

 private:
  struct Span {
    std::int32_t start = 0;
    std::int32_t length = 0;
  };

  Text text_;
  Layout layout_;
  Reading reading_;
  std::vector<Span> lines_;  // never empty
};

}  // namespace pointalk::sim
