// Says a text about an object, or what kind of thing it is when there is no text.
#pragma once

#include "reader/spot.h"
#include "speech/pronouncer.h"
#include "speech/speaker.h"
#include "text/text.h"

namespace pointalk {

// The beginning of a text that is said of an object: one line with the first character of its line end, at
// most 133 characters.
TextView SpokenBeginning(TextView text);

class ObjectSpeech {
 public:
  ObjectSpeech(Pronouncer& pronouncer, Speaker& speaker) : pronouncer_(pronouncer), speaker_(speaker) {}

  // A blank text, and one that is only the class name, is replaced by "It is a " and the class in words; over
  // the desktop's icon list it is left unsaid.
  void SpeakObjectText(TextView text, const Spot& spot);

 private:
  Pronouncer& pronouncer_;
  Speaker& speaker_;
};

}  // namespace pointalk
