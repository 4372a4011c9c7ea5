#include "reader/object_describer.h"

#include <utility>

#include "platform/timer_pause.h"
#include "reader/reader_choice.h"
#include "reader/report_facts.h"
#include "text/letters.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr int kClassLimit = 2047;

}  // namespace

void ObjectDescriber::DescribeObjectUnderPointer(Point pointer) {
  last_.mListViewRead = false;
  {
    const TimerPause quiet(seam_.panel, TimerPause::Then::kOn);
    Describe(pointer);
  }
  if (!last_.mListViewRead) last_.mWasOverDesktop = false;
}

void ObjectDescriber::Describe(Point pointer) {
  Spot spot = SpotAt(pointer);
  parts_.learning.LogClass(spot.className);
  const bool mIsBadQueryClass = parts_.learning.IsBadQueryClass(spot.className);
  const bool mIsBadClass = !mIsBadQueryClass && parts_.learning.IsBadClass(spot.className);
  Remember(spot);
  parts_.keys.ReadForDescription();
  parts_.speaker.SetSubject(spot.className);
  if (mIsBadQueryClass) return parts_.speaker.SpeakText(spot.className);
  Query(spot);
  if (mIsBadClass) return parts_.speaker.SpeakText(spot.texts.maccText);
  if (parts_.report.IsArmed()) {
    parts_.report.ReportIfAsked(CrashReportText(spot));
    // A tick that came while the report was spoken may have described another object.
    return parts_.speaker.SpeakText(last_.texts.maccText);
  }

  last_.mTopWindowName = readers_.topWindow.NameAbove(spot.window);
  AnnounceTopWindow(spot, last_.mTopWindowName);

  // Only the first description of a window takes its class name in lower case for the menu step.
  const Text& menuClass = EnterWindow(spot.window) ? spot.lowerClassName : spot.className;
  if (!Contains(spot.lowerClassName, u"text") && !Contains(spot.lowerClassName, u"edit"))
    readers_.editWords.MarkOtherClass();
  if (!ReadMenuStep(spot, menuClass)) ReadControlStep(spot);
}

Spot ObjectDescriber::SpotAt(Point pointer) {
  Spot spot;
  spot.point = pointer;
  spot.window = seam_.windows.WindowAt(pointer);
  spot.className = seam_.windows.ClassOf(spot.window, kClassLimit).value_or(Text());
  spot.lowerClassName = ToLower(spot.className);
  spot.overDesktop = spot.window == readers_.desktop.mDesktopListView;
  spot.wasOverDesktop = last_.mOverDesktop;
  spot.previousWindow = last_.mLastWindow;
  return spot;
}

void ObjectDescriber::Remember(const Spot& spot) {
  last_.mLastWindow = spot.window;
  last_.mWasOverDesktop = spot.wasOverDesktop;
  last_.mOverDesktop = spot.overDesktop;
  last_.mOfficialClassName = spot.className;
}

// A query that does not return leaves the marked line in the class log.
void ObjectDescriber::Query(Spot& spot) {
  parts_.learning.LogQueryOf(spot.className);
  spot.texts = readers_.query.QueryAccessibleObject(spot.point, spot.lowerClassName);
  last_.texts = spot.texts;
  last_.mTopWindowName.clear();
  if (Contains(spot.texts.maccRole, u"ditable")) last_.mSpareText.clear();
  if (!seam_.accessibility.QueryStillOut(spot.window)) parts_.learning.LogClass(spot.className);
}

void ObjectDescriber::AnnounceTopWindow(const Spot& spot, TextView topName) {
  if (topName == last_.mLastTopWindowName) return;
  if (topName == u"TaskBar") {
    parts_.speaker.SetSpeechPrefix(u"Tasck-Bar-");
  } else if (!topName.empty()) {
    readers_.objectSpeech.SpeakObjectText(topName, spot);
  }
  last_.mLastTopWindowName = topName;
}

// True when the window was not described last.
bool ObjectDescriber::EnterWindow(WindowHandle window) {
  if (window == last_.mLastDescribedWindow) return false;
  readers_.editWords.MarkNewWindow();
  parts_.sounds.PlayEarcon(u"NewWindow");
  last_.mLastDescribedWindow = window;
  return true;
}

// True when the spot is done with. Over a menu's own window the control step follows all the same.
bool ObjectDescriber::ReadMenuStep(const Spot& spot, TextView className) {
  const bool menuClass = Contains(className, u"menu");
  const bool commandBar = !menuClass && Contains(className, u"commandbar");
  return readers_.menus.ReadMenu(spot, commandBar) && !menuClass;
}

void ObjectDescriber::ReadControlStep(const Spot& spot) {
  switch (ReaderFor(spot.lowerClassName)) {
    case Reader::kListView: last_.mListViewRead = true; return readers_.listViews.ReadListView(spot);
    case Reader::kListBox: return readers_.listBoxes.ReadListBox(spot);
    case Reader::kAccessibleControl: return readers_.controls.ReadAccessibleControl(spot);
    case Reader::kComboBox: return readers_.controls.ReadComboBox(spot);
    case Reader::kTreeView: return readers_.controls.ReadTreeView(spot);
    case Reader::kRichEdit: last_.texts.maccText = readers_.edits.ReadRichEdit(spot); return;
    case Reader::kEditControl: return readers_.edits.ReadEditControl(spot);
    case Reader::kButton: return readers_.controls.ReadButton(spot);
    case Reader::kStaticControl: return readers_.controls.ReadStaticControl(spot);
  }
}

void ObjectDescriber::Identify() {
  const TimerPause quiet(seam_.panel);
  const Text& className = last_.mOfficialClassName;
  if (ContainsInLowerCase(className, u"combo")) {
    parts_.speaker.SpeakAndWait(u"It is a " + parts_.pronouncer.ClassNameToWords(className));
  } else if (!IsBlank(last_.texts.maccRole)) {
    parts_.speaker.SpeakAndWait(u"It is a " + last_.texts.maccRole + u". ");
    if (!ContainsInLowerCase(last_.texts.maccDescription, u"menu"))
      parts_.speaker.SpeakAndWait(last_.texts.maccDescription);
  } else if (!IsBlank(className)) {
    parts_.speaker.SpeakAndWait(u"It is a " + parts_.pronouncer.ClassNameToWords(className));
  }
}

void ObjectDescriber::NameTopWindow() {
  if (last_.mOverDesktop) last_.mTopWindowName = u"DeskTop";
  const SpellingBlock unspelled(parts_.keys);
  parts_.speaker.SpeakText(u"The");
  parts_.speaker.SpeakAndWait(u"Top Window is " + last_.mTopWindowName);
}

}  // namespace pointalk
