// The tick, step by step.
#include "app/poll_loop.h"

#include <cmath>

#include "app/timer_pause.h"
#include "text/letters.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr double kClickSettles = 0.2;  // seconds in which a click may still become a double click
constexpr std::int32_t kMostRestTicks = 10;
constexpr int kTickInterval = 30;  // milliseconds

// A held Shift does not spell for as long as this lives.
class SpellingBlock {
 public:
  explicit SpellingBlock(InputState& theInput) : input(theInput) { input.mSpellingBlocked = true; }
  ~SpellingBlock() { input.mSpellingBlocked = false; }
  SpellingBlock(const SpellingBlock&) = delete;
  SpellingBlock& operator=(const SpellingBlock&) = delete;

 private:
  InputState& input;
};

}  // namespace

void PollLoop::Timer1_Timer() {
  SpeakClick();
  ReadKeys();
  if (AnswerControl()) return;
  sounds.CountTick();
  PollPointer();
}

void PollLoop::SpeakClick() {
  if (input.mPendingEventText.empty()) return;
  const double now = seam.clock.SecondsSinceMidnight();
  if (mLastClickText.empty()) {
    mLastClickTime = now;
    mLastClickText = input.mPendingEventText;
    return;
  }
  if (!(std::fabs(now - mLastClickTime) > kClickSettles)) return;
  if (input.mPendingEventText == u"DoubleClick") {
    speaker.SpeakAndWait(input.mPendingEventText);
  } else {
    speaker.SpeakRaw(input.mPendingEventText);
  }
  mLastClickText.clear();
  input.mPendingEventText.clear();
}

void PollLoop::ReadKeys() {
  input.mCtrlDownBefore = input.mCtrlDown;
  input.mShiftDownBefore = input.mShiftDown;
  input.mAltDownBefore = input.mAltDown;
  input.mCtrlDown = seam.keys.KeyDown(kKeyControl);
  input.mAltDown = seam.keys.KeyDown(kKeyAlt);
  input.mShiftDown = seam.keys.KeyDown(kKeyShift);
}

// True when the tick ends here.
bool PollLoop::AnswerControl() {
  if (!input.mCtrlDown || input.mCtrlDownBefore) return false;
  if (input.mShiftDown) {
    NameTopWindow();
    return false;
  }
  if (!mDescribeArmed) return false;
  Identify();
  return true;
}

void PollLoop::Identify() {
  const TimerPause quiet(seam.panel);
  if (ContainsInLowerCase(description.mOfficialClassName, u"combo")) {
    speaker.SpeakAndWait(u"It is a " + pronouncer.ClassNameToWords());
  } else if (!IsBlank(description.maccRole)) {
    speaker.SpeakAndWait(u"It is a " + description.maccRole + u". ");
    if (!ContainsInLowerCase(description.maccDescription, u"menu"))
      speaker.SpeakAndWait(description.maccDescription);
  } else if (!IsBlank(description.mOfficialClassName)) {
    speaker.SpeakAndWait(u"It is a " + pronouncer.ClassNameToWords());
  }
}

void PollLoop::NameTopWindow() {
  if (history.mOverDesktop) description.mTopWindowName = u"DeskTop";
  const SpellingBlock unspelled(input);
  speaker.SpeakText(u"The");
  speaker.SpeakAndWait(u"Top Window is " + description.mTopWindowName);
}

void PollLoop::PollPointer() {
  if (const auto position = seam.keys.PointerPosition()) {
    input.mCursorX = position->x;
    input.mCursorY = position->y;
  }
  if (Rests()) return;
  mDescribeArmed = true;
  mLastCursorX = input.mCursorX;
  if (mScreenWidthPx == 0 || mScreenHeightPx == 0) MeasureScreen();
  mLastCursorY = input.mCursorY;
  tones.PlayCell(GridIndex(input.mCursorX, mScreenWidthPx),
                 GridIndex(mScreenHeightPx - input.mCursorY, mScreenHeightPx));
  seam.panel.SetTimerInterval(kTickInterval);
  mTonesSounding = true;
  describer.DescribeObjectUnderPointer();
  if (!history.mListViewRead) history.mWasOverDesktop = false;
}

// True when the pointer has been still for so long that nothing is to be done. With the left button down it
// never is.
bool PollLoop::Rests() {
  if (seam.keys.KeyDown(kKeyLeftButton)) return false;
  if (input.mCursorX != mLastCursorX || input.mCursorY != mLastCursorY) {
    mRestTicks = 0;
    return false;
  }
  ++mRestTicks;
  if (mRestTicks <= kMostRestTicks) return false;
  mRestTicks = kMostRestTicks + 1;
  if (mTonesSounding && port.MouseTonesOn()) {
    port.StopPositionTones();
    seam.panel.LetMessagesRun();
    mDescribeArmed = false;
    OnPointerRest();
    mTonesSounding = false;
  }
  return true;
}

void PollLoop::MeasureScreen() {
  const auto screen = seam.keys.Screen();
  if (!screen || screen->twipsPerPixelX == 0 || screen->twipsPerPixelY == 0) return;
  mScreenWidthPx = screen->widthTwips / screen->twipsPerPixelX;
  mScreenHeightPx = screen->heightTwips / screen->twipsPerPixelY;
}

}  // namespace pointalk
