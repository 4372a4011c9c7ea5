#include "input/keys.h"

#include <tuple>

namespace pointalk {

void Keys::ReadForTick() {
  mCtrlDownBefore = mCtrlDown;
  mShiftDownBefore = mShiftDown;
  mAltDownBefore = mAltDown;
  mCtrlDown = input_.KeyDown(kKeyControl);
  mAltDown = input_.KeyDown(kKeyAlt);
  mShiftDown = input_.KeyDown(kKeyShift);
}

void Keys::ReadForDescription() {
  mCtrlDown = input_.KeyDown(kKeyControl);
  mAltDown = input_.KeyDown(kKeyAlt);
}

void Keys::ReadForUtterance() { mShiftDown = input_.KeyDown(kKeyShift); }

bool Keys::ReadForSpelling() {
  const bool shift = input_.KeyDown(kKeyShift);
  // Alt and Control play no part, but asking for them uses up a short press.
  std::ignore = input_.KeyDown(kKeyAlt);
  std::ignore = input_.KeyDown(kKeyControl);
  return shift && !mSpellingBlocked;
}

bool Keys::ReadLeftButton() { return input_.KeyDown(kKeyLeftButton); }

}  // namespace pointalk
