// Lines and words of text fields: the cutting, and what of it is said.
#pragma once

#include <cstdint>

#include "reader/object_speech.h"
#include "reader/spot.h"
#include "text/text.h"

namespace pointalk {

// The word of a line at a position.
struct LineWord {
  // 1-based place of its leading blank, or of the line's beginning; 0 in an empty line.
  std::int32_t start = 0;
  Text word;              // with its leading blank; the whole line where the word is blank
  bool emptyLine = true;  // it holds no character but blanks, CR and LF
};

// The word begins at the last blank among as many first characters of the line as the position says; CR and
// LF do not count.
LineWord WordAt(TextView line, std::int32_t position);

// The two halves of what a text field says about a point; -1 is no character.
struct CharPosition {
  std::int32_t line = 0;
  std::int32_t character = 0;
};
CharPosition SplitCharPosition(std::int32_t answer);

inline constexpr std::int32_t kNoCharacter = -1;

// What is remembered of the line and word last read.
class EditWords {
 public:
  explicit EditWords(ObjectSpeech& objectSpeech) : objectSpeech_(objectSpeech) {}

  // Says a line when it is entered, and each word of it once while the pointer moves along.
  void SpeakEditWord(TextView line, std::int32_t lineIndex, std::int32_t position, const Spot& spot);

  // After each of these the next line is read whole.
  void MarkNewWindow() { mEditReadMark = -4; }
  void MarkOtherClass() { mEditReadMark = -1; }
  void MarkScrollBar() { mEditReadMark = -2; }

 private:
  ObjectSpeech& objectSpeech_;

  std::int32_t mEditReadMark = 0;   // index of the line last read, or one of the marks
  std::int32_t mEditWordStart = 0;  // of the word last said on it
};

}  // namespace pointalk
