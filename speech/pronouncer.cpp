#include "speech/pronouncer.h"

#include "speech/phonetics.h"

namespace pointalk {

Text Pronouncer::PronounceText(TextView text) {
  if (text.empty()) return {};
  return Pronounced(text, keys_.ReadForSpelling());
}

const Text& Pronouncer::ClassNameToWords(TextView className) {
  mClassNameWords = WithDesktopNames(WithoutClutter(PronounceText(WithSplitMarks(className))));
  return mClassNameWords;
}

}  // namespace pointalk
