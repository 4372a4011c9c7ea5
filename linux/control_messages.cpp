#include "linux/control_messages.h"

#include <algorithm>

#include "linux/buffers.h"
#include "linux/roles.h"
#include "reader/messages.h"

namespace pointalk::linux {
namespace {

constexpr std::int32_t kNoCharacter = -1;
constexpr std::int32_t kLineMargin = 3;  // x, in pixels: what lies before it is the line's first character
constexpr std::int32_t kLongestPosition = 0xFFFF;  // characters

std::int32_t Packed(std::int32_t line, std::int32_t character) {
  return line << 16 | std::min(character, kLongestPosition);
}

std::int32_t LengthOf(const LineHit& line) { return static_cast<std::int32_t>(line.line.size()); }

// Where the point is that of the pointer, its character; before the line, its first; anywhere else another
// line's.
std::int32_t CharacterAt(const LineHit& line, Point pointer, std::uint64_t packed) {
  const auto x = static_cast<std::int16_t>(packed & 0xFFFF);
  const auto y = static_cast<std::int16_t>(packed >> 16 & 0xFFFF);
  if (y != static_cast<std::int16_t>(pointer.y == 0 ? 1 : pointer.y))
    return Packed(line.number + 1, LengthOf(line));
  return Packed(line.number, x <= kLineMargin ? 0 : line.position);
}

}  // namespace

const Thing* LinuxControlMessages::Answering(WindowHandle window) {
  const Thing* const thing = things_.Find(window);
  return thing == nullptr || things_.IsSilent(thing->process) ? nullptr : thing;
}

Text LinuxControlMessages::TextOf(const Thing& thing) {
  if (thing.isPopUp) return {};
  if (thing.handle == thing.frame) return things_.TitleOf(thing);
  if (!thing.isButton) return {};
  return thing.facts.description.value_or(Text(SpokenRoleText(thing.facts.role.value_or(0))));
}

std::optional<std::int32_t> LinuxControlMessages::Send(WindowHandle window, std::uint32_t message,
                                                       std::uint64_t, std::uint64_t lParam) {
  const Thing* const thing = Answering(window);
  if (thing == nullptr) return std::nullopt;
  switch (message) {
    case kWmGetTextLength:
      if (thing->isPassword) return std::nullopt;
      return static_cast<std::int32_t>(TextOf(*thing).size());
    case kEmCharFromPos:
      return thing->line ? CharacterAt(*thing->line, thing->pointer, lParam) : kNoCharacter;
    case kEmLineLength: return thing->line ? LengthOf(*thing->line) : 0;
    case kEmLineFromChar: return thing->line ? thing->line->number : 0;
    default: return 0;
  }
}

std::optional<Text> LinuxControlMessages::WindowText(WindowHandle window, std::int32_t capacity) {
  const Thing* const thing = Answering(window);
  if (thing == nullptr || thing->isPassword) return std::nullopt;
  return FittingBuffer(TextOf(*thing), capacity);
}

std::optional<Text> LinuxControlMessages::EditLine(WindowHandle window, std::int32_t line,
                                                   std::int32_t capacity) {
  const Thing* const thing = Answering(window);
  if (thing == nullptr || thing->isPassword) return std::nullopt;
  if (!thing->line || thing->line->number != line || capacity <= 0) return Text();
  return thing->line->line.substr(0, static_cast<std::size_t>(capacity));
}

}  // namespace pointalk::linux
