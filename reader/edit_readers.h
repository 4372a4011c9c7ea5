// Reads text fields by position: the line under the pointer and the word in it.
#pragma once

#include <cstdint>

#include "platform/control_messages.h"
#include "platform/remote_memory.h"
#include "platform/window_tree.h"
#include "reader/control_readers.h"
#include "reader/edit_words.h"
#include "reader/object_speech.h"
#include "reader/spot.h"

namespace pointalk {

class EditReaders {
 public:
  struct Seam {
    ControlMessages& messages;
    WindowTree& windows;
    RemoteMemory& memory;
  };

  EditReaders(const Seam& seam, ObjectSpeech& objectSpeech, ControlReaders& controlReaders,
              EditWords& editWords)
      : seam_(seam), objectSpeech_(objectSpeech), controlReaders_(controlReaders), editWords_(editWords) {}

  // Plain edit controls, which take points as numbers.
  void ReadEditControl(const Spot& spot);

  // Rich edits, which take points by address. Gives the accessible text as it stands afterwards: where a line
  // was read, with a line feed behind every carriage return.
  Text ReadRichEdit(const Spot& spot);

 private:
  Seam seam_;
  ObjectSpeech& objectSpeech_;
  ControlReaders& controlReaders_;
  EditWords& editWords_;

  // The first character of the next line down, counted from 0. Where no other line begins within the scan it
  // is the one found at an earlier reading.
  std::int32_t mEditNextLineStart = 0;

  std::int32_t Ask(WindowHandle window, std::uint32_t message, std::int32_t number);
  std::int32_t CharAt(WindowHandle window, std::int32_t x, std::int32_t y);
  Text Line(WindowHandle window, std::int32_t lineIndex, std::int32_t length);
  template <class AskCharacter>
  void FindNextLineStart(std::int32_t y, std::int32_t lineStart, AskCharacter askCharacter);
};

}  // namespace pointalk
