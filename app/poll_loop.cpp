#include "app/poll_loop.h"

namespace pointalk {
namespace {

constexpr std::int32_t kMostRestTicks = 10;
constexpr int kTickInterval = 30;  // milliseconds

}  // namespace

void PollLoop::Timer1_Timer() {
  SpeakClick();
  keys_.ReadForTick();
  if (AnswerControl()) return;
  eventSounds_.CountTick();
  PollPointer();
}

void PollLoop::SpeakClick() {
  if (clicks_.Pending().empty()) return;
  if (!clicks_.HasSettled(seam_.clock.SecondsSinceMidnight())) return;
  if (clicks_.Pending() == u"DoubleClick") {
    speaker_.SpeakAndWait(clicks_.Pending());
  } else {
    speaker_.SpeakRaw(clicks_.Pending());
  }
  clicks_.ForgetSettled();
}

// True when the tick ends here.
bool PollLoop::AnswerControl() {
  if (!keys_.ControlPressed()) return false;
  if (keys_.ShiftDown()) {
    objectDescriber_.NameTopWindow();
    return false;
  }
  if (!mDescribeArmed) return false;
  objectDescriber_.Identify();
  return true;
}

void PollLoop::PollPointer() {
  if (const auto position = seam_.input.PointerPosition()) {
    mCursorX = position->x;
    mCursorY = position->y;
  }
  if (Rests()) return;
  mDescribeArmed = true;
  mLastCursorX = mCursorX;
  mLastCursorY = mCursorY;
  if (mScreenWidthPx == 0 || mScreenHeightPx == 0) MeasureScreen();
  positionTones_.Play({mCursorX, mCursorY}, {mScreenWidthPx, mScreenHeightPx});
  seam_.panel.SetTimerInterval(kTickInterval);
  mTonesSounding = true;
  objectDescriber_.DescribeObjectUnderPointer({mCursorX, mCursorY});
}

// True when the pointer has been still for so long that no description is due. With the left button down it
// never is.
bool PollLoop::Rests() {
  if (keys_.ReadLeftButton()) return false;
  if (mCursorX != mLastCursorX || mCursorY != mLastCursorY) {
    mRestTicks = 0;
    return false;
  }
  ++mRestTicks;
  if (mRestTicks <= kMostRestTicks) return false;
  mRestTicks = kMostRestTicks + 1;
  if (mTonesSounding && midiPort_.MouseTonesOn()) {
    midiPort_.StopPositionTones();
    seam_.panel.LetMessagesRun();
    mDescribeArmed = false;
    OnPointerRest();
    mTonesSounding = false;
  }
  return true;
}

void PollLoop::MeasureScreen() {
  const auto screen = seam_.input.Screen();
  if (!screen || screen->twipsPerPixelX == 0 || screen->twipsPerPixelY == 0) return;
  mScreenWidthPx = screen->widthTwips / screen->twipsPerPixelX;
  mScreenHeightPx = screen->heightTwips / screen->twipsPerPixelY;
}

}  // namespace pointalk
