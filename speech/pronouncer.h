// Texts and class names made fit for the speech engine, spelled while Shift is held.
#pragma once

#include "input/keys.h"
#include "text/text.h"

namespace pointalk {

class Pronouncer {
 public:
  explicit Pronouncer(Keys& keys) : keys_(keys) {}

  // Spells while Shift is down at this moment, unless spelling is blocked. An empty text asks for no key.
  Text PronounceText(TextView text);

  Text PronounceTextToString(TextView text) { return PronounceText(text); }  // Kept: nothing reads it.

  // A class name in words.
  Text ClassNameToWords(TextView className);

 private:
  Keys& keys_;
  Text mClassNameWords;  // Kept: nothing reads it.
};

}  // namespace pointalk
