#include "sim/edit.h"

#include <algorithm>
#include <utility>

namespace pointalk::sim {

Edit::Edit(Text text, Layout layout, TextView lineEnd, Reading reading)
    : text_(std::move(text)), layout_(layout), reading_(reading) {
  for (std::size_t start = 0;;) {
    const std::size_t end = std::min(text_.find(lineEnd, start), text_.size());
    lines_.push_back({static_cast<std::int32_t>(start), static_cast<std::int32_t>(end - start)});
    if (end == text_.size()) return;
    start = end + lineEnd.size();
  }
}

std::optional<Edit::Place> Edit::CharacterFromPoint(Point client) const {
  if (text_.empty()) return std::nullopt;
  const auto lastLine = static_cast<std::int32_t>(lines_.size()) - 1;
  const std::int32_t line = std::clamp(client.y / layout_.lineHeight, 0, lastLine);
  const Span& span = lines_[static_cast<std::size_t>(line)];
  const std::int32_t column = std::clamp(client.x / layout_.charWidth, 0, span.length);
  return Place{line, span.start + column};
}

std::int32_t Edit::LineFromCharacter(std::int32_t character) const {
  const auto after =
      std::upper_bound(lines_.begin(), lines_.end(), character,
                       [](std::int32_t index, const Span& span) { return index < span.start; });
  return std::max(static_cast<std::int32_t>(after - lines_.begin()) - 1, 0);
}

std::int32_t Edit::LineLength(std::int32_t character) const {
  if (character < 0 || static_cast<std::size_t>(character) > text_.size()) return 0;
  return lines_[static_cast<std::size_t>(LineFromCharacter(character))].length;
}

TextView Edit::Line(std::int32_t line) const {
  if (line < 0 || static_cast<std::size_t>(line) >= lines_.size()) return {};
  const Span& span = lines_[static_cast<std::size_t>(line)];
  return TextView(text_).substr(static_cast<std::size_t>(span.start), static_cast<std::size_t>(span.length));
}

}  // namespace pointalk::sim
