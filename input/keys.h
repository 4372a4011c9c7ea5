// The keys and the left button, as the program asks for them. No other class asks the platform for a
// key: a press that begins and ends between two questions is told to the first question after it and to no
// other, so how often each key is asked for, and in which order, is behaviour. Who wants to know only what
// the last question said uses the const members.
#pragma once

#include "platform/input.h"

namespace pointalk {

class Keys {
 public:
  explicit Keys(Input& input) : input_(input) {}

  // Each of these asks the platform anew.
  void ReadForTick();         // Control, Alt, Shift
  void ReadForDescription();  // Control, Alt
  void ReadForUtterance();    // Shift
  bool ReadForSpelling();     // Shift, Alt, Control; true when a text is to be spelled
  bool ReadLeftButton();

  // Control is down and was not when it was last asked for before this tick.
  bool ControlPressed() const { return mCtrlDown && !mCtrlDownBefore; }

  // By the last tick or utterance, whichever came later.
  bool ShiftDown() const { return mShiftDown; }

 private:
  friend class SpellingBlock;

  Input& input_;

  bool mCtrlDown = false;  // by the last tick or description
  bool mShiftDown = false;
  bool mAltDown = false;          // Kept: nothing reads it.
  bool mCtrlDownBefore = false;   // what mCtrlDown was when the last tick began
  bool mShiftDownBefore = false;  // Kept: nothing reads it.
  bool mAltDownBefore = false;    // Kept: nothing reads it.
  bool mSpellingBlocked = false;  // a held Shift does not spell
};

// A held Shift does not spell for as long as this lives.
class SpellingBlock {
 public:
  explicit SpellingBlock(Keys& keys) : keys_(keys) { keys_.mSpellingBlocked = true; }
  ~SpellingBlock() { keys_.mSpellingBlocked = false; }
  SpellingBlock(const SpellingBlock&) = delete;
  SpellingBlock& operator=(const SpellingBlock&) = delete;

 private:
  Keys& keys_;
};

}  // namespace pointalk
