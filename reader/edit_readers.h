// Reads text fields by position: the line under the pointer and the word in it.
#pragma once

#include <cstdint>

#include "platform/control_messages.h"
#include "platform/remote_memory.h"
#include "platform/window_tree.h"
#include "reader/control_readers.h"
#include "reader/edit_words.h"
#include "reader/object_description.h"
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

  EditReaders(const Seam& theSeam, ObjectDescription& theDescription, ObjectSpeech& theSpeech,
              ControlReaders& theControls, EditWords& theWords)
      : seam(theSeam),
        description(theDescription),
        speech(theSpeech),
        controls(theControls),
        words(theWords) {}

  // Plain edit controls, which take points as numbers. True when the spot was handled.
  bool ReadEditControl(const Spot& spot);

  // Rich edits, which take points by address. True when the spot was handled.
  bool ReadRichEdit(const Spot& spot);

 private:
  Seam seam;
  ObjectDescription& description;
  ObjectSpeech& speech;
  ControlReaders& controls;
  EditWords& words;

  std::int32_t mEditLineStart = 0;      // place, from 1, of the first character of the line under the pointer
  std::int32_t mEditNextLineStart = 0;  // of the first character of the next line down, counted from 0

  std::int32_t Ask(WindowHandle window, std::uint32_t message, std::int32_t number);
  std::int32_t CharAt(WindowHandle window, std::int32_t x, std::int32_t y);
  Text Line(WindowHandle window, std::int32_t lineIndex, std::int32_t length);
  Text PartBetweenLineStarts() const;
  template <class AskCharacter>
  void FindNextLineStart(std::int32_t y, std::int32_t lineStart, AskCharacter askCharacter);
};

}  // namespace pointalk
