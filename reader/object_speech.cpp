#include "reader/object_speech.h"

#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr std::size_t kMostCharacters = 133;

TextView CutAfter(TextView text, char16_t control) {
  const auto at = text.find(control);
  return at == TextView::npos ? text : text.substr(0, at + 1);
}

}  // namespace

TextView SpokenBeginning(TextView text) {
  return CutAfter(CutAfter(text, u'\n'), u'\r').substr(0, kMostCharacters);
}

void ObjectSpeech::SpeakObjectText(TextView text, const Spot& spot) {
  const TextView beginning = SpokenBeginning(text);
  if (!IsBlank(beginning) && beginning != spot.className) {
    speaker_.SpeakText(beginning);
    return;
  }
  if (spot.overDesktop || IsBlank(spot.className)) return;
  speaker_.SpeakText(u"It is a " + pronouncer_.ClassNameToWords(spot.className));
}

}  // namespace pointalk
