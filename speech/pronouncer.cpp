// Reads the keys and applies the rules.
#include "speech/pronouncer.h"

#include "speech/phonetics.h"

namespace pointalk {

Text Pronouncer::PronounceText(TextView text) {
  if (text.empty()) return {};
  const bool shift = keys.KeyDown(kKeyShift);
  // Alt and Control play no part, but asking for them uses up a short press, as it always did.
  keys.KeyDown(kKeyAlt);
  keys.KeyDown(kKeyControl);
  return Pronounced(text, shift && !input.mSpellingBlocked);
}

Text Pronouncer::PronounceTextToString(TextView text) { return PronounceText(text); }

const Text& Pronouncer::ClassNameToWords() {
  const Text marked = WithSplitMarks(description.mOfficialClassName);
  mClassNameWords = WithDesktopNames(WithoutClutter(PronounceText(marked)));
  return mClassNameWords;
}

}  // namespace pointalk
