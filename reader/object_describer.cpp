// The description, step by step.
#include "reader/object_describer.h"

#include "app/timer_pause.h"
#include "reader/reader_choice.h"
#include "text/letters.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr int kClassLimit = 2047;

}  // namespace

void ObjectDescriber::DescribeObjectUnderPointer() {
  history.mListViewRead = false;
  const TimerPause quiet(seam.panel, TimerPause::Then::kOn);
  Describe();
}

void ObjectDescriber::Describe() {
  history.mPreviousWindow = history.mLastWindow;
  const Spot spot{{input.mCursorX, input.mCursorY}, seam.windows.WindowAt({input.mCursorX, input.mCursorY})};
  Text className = seam.windows.ClassOf(spot.window, kClassLimit).value_or(Text());
  learning.LogClass(className);
  const bool mIsBadQueryClass = learning.IsBadQueryClass(className);
  const bool mIsBadClass = !mIsBadQueryClass && learning.IsBadClass(className);
  NoteWindow(spot.window, className);
  if (mIsBadQueryClass) return speaker.SpeakText(className);
  Query(spot, className);
  if (mIsBadClass) return speaker.SpeakText(description.maccText);
  if (report.IsArmed()) {
    report.ReportIfAsked();
    return speaker.SpeakText(description.maccText);
  }

  const Text topName = readers.topWindow.NameAbove(spot.window);
  AnnounceTopWindow(topName);
  if (description.mTopWindowName.empty()) description.mTopWindowName = topName;

  const Text lowerClassName = ToLower(className);
  // Only the first description of a window takes its class name in lower case for the menu step.
  if (EnterWindow(spot.window)) className = lowerClassName;
  if (!Contains(lowerClassName, u"text") && !Contains(lowerClassName, u"edit"))
    readers.editWords.MarkOtherClass();
  if (!ReadMenuStep(spot, className)) ReadControlStep(spot, lowerClassName);
}

void ObjectDescriber::NoteWindow(WindowHandle window, TextView className) {
  history.mLastWindow = window;
  history.mWasOverDesktop = history.mOverDesktop;
  history.mOverDesktop = window == desktop.mDesktopListView;
  input.mCtrlDown = seam.keys.KeyDown(kKeyControl);
  input.mAltDown = seam.keys.KeyDown(kKeyAlt);
  description.mOfficialClassName = className;
}

// A query that does not return leaves the marked line in the class log.
void ObjectDescriber::Query(const Spot& spot, TextView className) {
  learning.LogQueryOf(className);
  readers.query.QueryAccessibleObject(spot.pointer);
  if (!seam.accessibility.QueryStillOut(spot.window)) learning.LogClass(className);
}

void ObjectDescriber::AnnounceTopWindow(TextView topName) {
  if (topName == mLastTopWindowName) return;
  if (topName == u"TaskBar") {
    speaker.SetSpeechPrefix(u"Tasck-Bar-");
  } else if (!topName.empty()) {
    speech.SpeakObjectText(topName);
  }
  mLastTopWindowName = topName;
}

// True when the window was not described last.
bool ObjectDescriber::EnterWindow(WindowHandle window) {
  if (window == mLastDescribedWindow) return false;
  readers.editWords.MarkNewWindow();
  sounds.PlayEarcon(u"NewWindow");
  mLastDescribedWindow = window;
  return true;
}

// True when the spot is done with. Over a menu's own window the control step follows all the same.
bool ObjectDescriber::ReadMenuStep(const Spot& spot, TextView className) {
  const bool menuClass = Contains(className, u"menu");
  const bool commandBar = !menuClass && Contains(className, u"commandbar");
  return readers.menus.ReadMenu(spot, commandBar) && !menuClass;
}

void ObjectDescriber::ReadControlStep(const Spot& spot, TextView lowerClassName) {
  switch (ReaderFor(lowerClassName)) {
    case Reader::kListView: readers.listViews.ReadListView(spot); return;
    case Reader::kListBox: readers.listBoxes.ReadListBox(spot); return;
    case Reader::kAccessibleControl: readers.controls.ReadAccessibleControl(spot.window); return;
    case Reader::kComboBox: readers.controls.ReadComboBox(spot); return;
    case Reader::kTreeView: readers.controls.ReadTreeView(spot); return;
    case Reader::kRichEdit: readers.edits.ReadRichEdit(spot); return;
    case Reader::kEditControl: readers.edits.ReadEditControl(spot); return;
    case Reader::kButton: readers.controls.ReadButton(spot); return;
    case Reader::kStaticControl: readers.controls.ReadStaticControl(spot); return;
  }
}

}  // namespace pointalk
