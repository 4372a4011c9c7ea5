// Texts and class names made fit for the speech engine, spelled while Shift is held.
#pragma once

#include "app/input_state.h"
#include "platform/input.h"
#include "platform/text.h"
#include "reader/object_description.h"

namespace pointalk {

class Pronouncer {
 public:
  Pronouncer(Input& theKeys, const InputState& theInput, const ObjectDescription& theDescription)
      : keys(theKeys), input(theInput), description(theDescription) {}

  // Spells while Shift is down at this moment, unless spelling is blocked. An empty text asks for no key.
  Text PronounceText(TextView text);

  // The same, as a value of its own.
  Text PronounceTextToString(TextView text);

  // The class name of the window under the pointer in words; kept in mClassNameWords too.
  const Text& ClassNameToWords();

 private:
  Input& keys;
  const InputState& input;
  const ObjectDescription& description;
  Text mClassNameWords;
};

}  // namespace pointalk
