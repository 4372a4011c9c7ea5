// Says a text about an object, or what kind of thing it is when there is no text.
#pragma once

#include "platform/text.h"
#include "reader/object_description.h"
#include "reader/spot.h"
#include "speech/pronouncer.h"
#include "speech/speaker.h"

namespace pointalk {

// The beginning of a text that is said of an object: one line, its control character kept, and at most 133
// characters.
TextView SpokenBeginning(TextView text);

class ObjectSpeech {
 public:
  ObjectSpeech(const ObjectDescription& theDescription, const SpotHistory& theHistory,
               Pronouncer& thePronouncer, Speaker& theSpeaker)
      : description(theDescription), history(theHistory), pronouncer(thePronouncer), speaker(theSpeaker) {}

  // A blank text, and one that is only the class name, is replaced by "It is a " and the class in words; over
  // the desktop's icon list nothing is said then.
  void SpeakObjectText(TextView text);

 private:
  const ObjectDescription& description;
  const SpotHistory& history;
  Pronouncer& pronouncer;
  Speaker& speaker;
};

}  // namespace pointalk
