// Asks the control for line and character, reads the line, and hands both on.
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

// How many characters the control is told that it may copy: the number is sent in the line's own first
// characters, as far as the line has any.
std::int32_t AnnouncedCapacity(std::int32_t lineLength) {
  if (lineLength < 1) return 0;
  return lineLength == 1 ? 4 : kLongestLine;
}

}  // namespace

std::int32_t EditReaders::Ask(WindowHandle window, std::uint32_t message, std::int32_t number) {
  return seam.messages.Send(window, message, static_cast<std::uint64_t>(std::int64_t{number}), 0).value_or(0);
}

std::int32_t EditReaders::CharAt(WindowHandle window, std::int32_t x, std::int32_t y) {
  return seam.messages.Send(window, kEmCharFromPos, 0, PackedPoint(x, y)).value_or(0);
}

// Stays as it was where no other line begins within the scan. The question at y itself has just been
// answered.
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

bool EditReaders::ReadEditControl(const Spot& spot) {
  if (ContainsInLowerCase(description.maccName, u"position") ||
      ContainsInLowerCase(description.maccRole, u"scroll bar")) {
    return controls.ReadAccessibleControl(spot.window);
  }
  Point client = seam.windows.ToClient(spot.window, spot.pointer).value_or(spot.pointer);
  if (client.y == 0) client.y = 1;

  const std::int32_t lineStart = CharAt(spot.window, kLineMargin, client.y);
  mEditLineStart = lineStart;
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

  for (const Text& line : {Line(spot.window, lineIndex, length), PartBetweenLineStarts(),
                           description.maccText.substr(0, kFallbackCharacters)}) {
    if (!IsUsable(line)) continue;
    words.SpeakEditWord(line, lineIndex, position, description.mOfficialClassName);
    return true;
  }
  speech.SpeakObjectText(description.mOfficialClassName);
  return true;
}

// Empty for a control whose process is not known, as for every control that cannot be read. What the control
// does not give of the line's length makes the line unusable.
Text EditReaders::Line(WindowHandle window, std::int32_t lineIndex, std::int32_t length) {
  if (length < 1 || !seam.windows.ProcessOf(window)) return {};
  Text line = seam.messages.EditLine(window, lineIndex, AnnouncedCapacity(length)).value_or(Text());
  if (!line.empty()) line.resize(static_cast<std::size_t>(length));
  return line;
}

Text EditReaders::PartBetweenLineStarts() const {
  const std::int32_t count = mEditNextLineStart - mEditLineStart;
  if (mEditLineStart < 1 || count < 1) return {};
  const auto start = static_cast<std::size_t>(mEditLineStart) - 1;
  if (start >= description.maccText.size()) return {};
  return description.maccText.substr(start, static_cast<std::size_t>(count));
}

bool EditReaders::ReadRichEdit(const Spot& spot) {
  if (ContainsInLowerCase(description.maccRole, u"scroll bar")) {
    speech.SpeakObjectText(u"ScrollBar at " + description.maccValue);
    words.MarkScrollBar();
    return true;
  }
  const Point client = seam.windows.ToClient(spot.window, spot.pointer).value_or(spot.pointer);
  const ProcessId process = seam.windows.ProcessOf(spot.window).value_or(0);
  std::int32_t under = 0;
  std::int32_t lineStart = 0;
  {
    std::array<std::byte, 8> record{};
    RemoteBlock remote(seam.memory, process, record.size());
    const auto charAt = [&](std::int32_t x, std::int32_t y) {
      std::memcpy(record.data(), &x, 4);
      std::memcpy(record.data() + 4, &y, 4);
      if (!remote.Write(record)) return 0;
      return seam.messages.Send(spot.window, kEmCharFromPos, 0, remote.Address()).value_or(0);
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
  const Text counted = Replaced(Replaced(description.maccText, u"\r\n", u"\r"), u"\n", u"\r");
  Text line;
  if (length > 0 && static_cast<std::size_t>(start) < counted.size()) {
    line = counted.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
  }
  description.maccText = Replaced(description.maccText, u"\r", u"\r\n");
  words.SpeakEditWord(line, lineIndex, position, description.mOfficialClassName);
  return true;
}

}  // namespace pointalk
