#include "reader/edit_readers.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "reader/messages.h"
#include "reader/remote_block.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr std::int32_t kLineMargin = 3;  // x, in pixels, of a line's first character
constexpr std::int32_t kLineScan = 256;  // how far down the next line is looked for, in pixels
constexpr std::int32_t kLineScanStep = 4;
constexpr std::int32_t kLongestLine = 1028;  // characters that are read
constexpr std::size_t kFallbackCharacters = 60;

bool IsUsable(TextView line) { return !IsBlank(line) && !Contains(line, TextView(u"\0", 1)); }

// How many characters the control is told that it may copy. The number stands in the first two bytes of a
// buffer as long as the line: that of a line of one character has room for the low byte only.
std::int32_t AnnouncedCapacity(std::int32_t lineLength) {
  if (lineLength < 1) return 0;
  return lineLength == 1 ? 4 : kLongestLine;
}

// From a line's first character, counted from 1, up to the next line's, counted from 0. Empty where the text
// does not reach there.
Text PartBetweenLineStarts(const Text& text, std::int32_t lineStart, std::int32_t nextLineStart) {
  const std::int32_t count = nextLineStart - lineStart;
  if (lineStart < 1 || count < 1) return {};
  const auto start = static_cast<std::size_t>(lineStart) - 1;
  if (start >= text.size()) return {};
  return text.substr(start, static_cast<std::size_t>(count));
}

}  // namespace

std::int32_t EditReaders::Ask(WindowHandle window, std::uint32_t message, std::int32_t number) {
  return seam_.messages.Send(window, message, static_cast<std::uint64_t>(std::int64_t{number}), 0)
      .value_or(0);
}

std::int32_t EditReaders::CharAt(WindowHandle window, std::int32_t x, std::int32_t y) {
  return seam_.messages.Send(window, kEmCharFromPos, 0, PackedPoint(x, y)).value_or(0);
}

// The question at y itself has just been answered.
template <class AskCharacter>
void EditReaders::FindNextLineStart(std::int32_t y, std::int32_t lineStart, AskCharacter askCharacter) {
  for (std::int32_t down = kLineScanStep; down <= kLineScan; down += kLineScanStep) {
    const auto below = static_cast<std::int32_t>(std::int64_t{y} + down);  // a window may reach to the last y
    const std::int32_t start = askCharacter(below);
    if (start == lineStart) continue;
    mEditNextLineStart = SplitCharPosition(start).character;
    return;
  }
}

void EditReaders::ReadEditControl(const Spot& spot) {
  if (ContainsInLowerCase(spot.texts.maccName, u"position") ||
      ContainsInLowerCase(spot.texts.maccRole, u"scroll bar")) {
    return controlReaders_.ReadAccessibleControl(spot);
  }
  Point client = seam_.windows.ToClient(spot.window, spot.point).value_or(spot.point);
  if (client.y == 0) client.y = 1;

  const std::int32_t lineStart = CharAt(spot.window, kLineMargin, client.y);
  std::int32_t mEditLineStart = 0;  // counted from 1; 0 where there is no character
  FindNextLineStart(client.y, lineStart, [&](std::int32_t y) { return CharAt(spot.window, kLineMargin, y); });
  CharPosition start;
  if (lineStart != kNoCharacter) {
    start = SplitCharPosition(lineStart);
    mEditLineStart = start.character + 1;
  }
  std::int32_t lineIndex = start.line;
  std::int32_t position = 0;
  if (const std::int32_t under = CharAt(spot.window, client.x, client.y); under != kNoCharacter) {
    lineIndex = SplitCharPosition(under).line;
    position = SplitCharPosition(under).character - start.character;
  }
  const std::int32_t length = std::min(Ask(spot.window, kEmLineLength, start.character), kLongestLine);

  for (const Text& line : {Line(spot.window, lineIndex, length),
                           PartBetweenLineStarts(spot.texts.maccText, mEditLineStart, mEditNextLineStart),
                           spot.texts.maccText.substr(0, kFallbackCharacters)}) {
    if (!IsUsable(line)) continue;
    return editWords_.SpeakEditWord(line, lineIndex, position, spot);
  }
  objectSpeech_.SpeakObjectText(spot.className, spot);
}

// Empty for a control whose process is not known, as for every control that cannot be read. NULs stand for
// what the control did not give of the line's length; they make the line unusable.
Text EditReaders::Line(WindowHandle window, std::int32_t lineIndex, std::int32_t length) {
  if (length < 1 || !seam_.windows.ProcessOf(window)) return {};
  Text line = seam_.messages.EditLine(window, lineIndex, AnnouncedCapacity(length)).value_or(Text());
  if (!line.empty()) line.resize(static_cast<std::size_t>(length));
  return line;
}

Text EditReaders::ReadRichEdit(const Spot& spot) {
  if (ContainsInLowerCase(spot.texts.maccRole, u"scroll bar")) {
    objectSpeech_.SpeakObjectText(u"ScrollBar at " + spot.texts.maccValue, spot);
    editWords_.MarkScrollBar();
    return spot.texts.maccText;
  }
  const Point client = seam_.windows.ToClient(spot.window, spot.point).value_or(spot.point);
  const ProcessId process = seam_.windows.ProcessOf(spot.window).value_or(0);
  std::int32_t under = 0;
  std::int32_t lineStart = 0;
  {
    std::array<std::byte, 8> record{};
    RemoteBlock remote(seam_.memory, process, record.size());
    const auto charAt = [&](std::int32_t x, std::int32_t y) {
      std::memcpy(record.data(), &x, 4);
      std::memcpy(record.data() + 4, &y, 4);
      if (remote.IsLent() || !remote.Write(record)) return 0;
      return remote.Ask(seam_.messages, spot.window, kEmCharFromPos).value_or(0);
    };
    under = charAt(client.x, client.y);
    lineStart = charAt(kLineMargin, client.y);
    if (remote.Address() != 0) {
      FindNextLineStart(client.y, lineStart, [&](std::int32_t y) { return charAt(kLineMargin, y); });
    }
  }
  const std::int32_t start = lineStart == kNoCharacter ? 0 : SplitCharPosition(lineStart).character;
  const std::int32_t position = under == kNoCharacter ? 0 : SplitCharPosition(under).character - start;
  const std::int32_t lineIndex = Ask(spot.window, kEmLineFromChar, start);
  const std::int32_t length = Ask(spot.window, kEmLineLength, start);

  // The control counts a line end as one character.
  const Text counted = Replaced(Replaced(spot.texts.maccText, u"\r\n", u"\r"), u"\n", u"\r");
  Text line;
  if (length > 0 && static_cast<std::size_t>(start) < counted.size()) {
    line = counted.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
  }
  editWords_.SpeakEditWord(line, lineIndex, position, spot);
  return Replaced(spot.texts.maccText, u"\r", u"\r\n");
}

}  // namespace pointalk
