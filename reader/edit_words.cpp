#include "reader/edit_words.h"

#include <algorithm>

#include "text/text_rules.h"

namespace pointalk {
namespace {

// What is said of a field whose line is empty.
Text Substitute(const Spot& spot) {
  for (const Text* text : {&spot.texts.maccValue, &spot.texts.maccName, &spot.texts.maccRole}) {
    if (!IsBlank(*text)) return *text;
  }
  return u"It is a " + spot.className;
}

}  // namespace

LineWord WordAt(TextView line, std::int32_t position) {
  const Text cleaned = Replaced(Replaced(line, u"\r", u""), u"\n", u"");
  LineWord found;
  if (IsBlank(cleaned)) return found;
  found.emptyLine = false;
  const auto searched = static_cast<std::size_t>(std::max(position, 0));
  const auto blank = TextView(cleaned).substr(0, searched).rfind(u' ');
  const std::size_t begin = blank == TextView::npos ? 0 : blank;
  const std::size_t end = cleaned.find(u' ', begin + 1);
  found.start = static_cast<std::int32_t>(begin) + 1;
  found.word = cleaned.substr(begin, end == Text::npos ? Text::npos : end - begin);
  if (IsBlank(found.word)) found.word = cleaned;
  return found;
}

CharPosition SplitCharPosition(std::int32_t answer) {
  const std::int32_t line = answer / 65536;
  return {line, (answer - line * 65536) & 0xFFFF};
}

void EditWords::SpeakEditWord(TextView line, std::int32_t lineIndex, std::int32_t position,
                              const Spot& spot) {
  const LineWord word = WordAt(line, position);
  if (word.emptyLine) {
    objectSpeech_.SpeakObjectText(Substitute(spot), spot);
  } else if (mEditReadMark != lineIndex) {
    objectSpeech_.SpeakObjectText(line, spot);
  } else if (word.start != mEditWordStart) {
    objectSpeech_.SpeakObjectText(word.word, spot);
  }
  mEditWordStart = word.start;
  mEditReadMark = lineIndex;
}

}  // namespace pointalk
