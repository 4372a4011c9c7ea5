#include "speech/pronouncer.h"

#include "speech/phonetics.h"

namespace pointalk {

Text Pronouncer::PronounceText(TextView text) {
  if (text.empty()) return {};
  return Pronounced(text, keys_.ReadForSpelling());
}

Text Pronouncer::ClassNameToWords(TextView className) {
  Text words = WithDesktopNames(WithoutClutter(PronounceText(WithSplitMarks(className))));
  mClassNameWords = words;
  return words;
}

}  // namespace pointalk
