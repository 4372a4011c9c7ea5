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
  const WindowHandle window = seam_.windows.WindowAt(pointer);
  const Text className = seam_.windows.ClassOf(window, kClassLimit).value_or(Text());
  parts_.crashLearning.LogClass(className);
  const bool mIsBadQueryClass = parts_.crashLearning.IsBadQueryClass(className);
  const bool mIsBadClass = !mIsBadQueryClass && parts_.crashLearning.IsBadClass(className);
  const WindowHandle mPreviousWindow = std::exchange(last_.mLastWindow, window);
  last_.mWasOverDesktop = std::exchange(last_.mOverDesktop, window == readers_.desktopWindows.IconList());
  last_.mOfficialClassName = className;
  parts_.keys.ReadForDescription();
  parts_.speaker.SetSubject(className);
  if (mIsBadQueryClass) return parts_.speaker.SpeakText(className);

  parts_.crashLearning.LogQueryOf(className);
  const Spot spot{.point = pointer,
                  .window = window,
                  .className = className,
                  .lowerClassName = ToLower(className),
                  .overDesktop = last_.mOverDesktop,
                  .wasOverDesktop = last_.mWasOverDesktop,
                  .previousWindow = mPreviousWindow,
                  .texts = readers_.accessibilityQuery.QueryAccessibleObject(pointer, className)};
  RememberQuery(spot);
  if (mIsBadClass) return parts_.speaker.SpeakText(spot.texts.maccText);
  if (parts_.crashReport.IsArmed()) {
    parts_.crashReport.ReportIfAsked(CrashReportText(spot));
    // A tick that came while the report was spoken may have described another object.
    return parts_.speaker.SpeakText(last_.maccText);
  }

  last_.mTopWindowName = readers_.topWindow.NameAbove(spot.window);
  AnnounceTopWindow(spot, last_.mTopWindowName);

  // Only the first description of a window takes its class name in lower case for the menu step.
  const Text& menuClass = EnterWindow(spot.window) ? spot.lowerClassName : spot.className;
  if (!Contains(spot.lowerClassName, u"text") && !Contains(spot.lowerClassName, u"edit"))
    readers_.editWords.MarkOtherClass();
  if (!ReadMenuStep(spot, menuClass)) ReadControlStep(spot);
}

// Until here the class log has the class with a mark, which stays where the query does not return. Now that
// it has returned, the class is logged without the mark.
void ObjectDescriber::RememberQuery(const Spot& spot) {
  last_.maccRole = spot.texts.maccRole;
  last_.maccDescription = spot.texts.maccDescription;
  last_.maccText = spot.texts.maccText;
  last_.mTopWindowName.clear();
  if (Contains(spot.texts.maccRole, u"ditable")) last_.mSpareText.clear();
  if (!seam_.accessibility.QueryPending(spot.window)) parts_.crashLearning.LogClass(spot.className);
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
  parts_.eventSounds.PlayEarcon(u"NewWindow");
  last_.mLastDescribedWindow = window;
  return true;
}

// True when the spot is done with. Over a menu's own window the control step follows all the same.
bool ObjectDescriber::ReadMenuStep(const Spot& spot, TextView className) {
  const bool menuClass = Contains(className, u"menu");
  const bool commandBar = !menuClass && Contains(className, u"commandbar");
  return readers_.menuReader.ReadMenu(spot, commandBar) && !menuClass;
}

void ObjectDescriber::ReadControlStep(const Spot& spot) {
  switch (ReaderFor(spot.lowerClassName)) {
    case Reader::kListView: last_.mListViewRead = true; return readers_.listViewReader.ReadListView(spot);
    case Reader::kListBox: return readers_.listBoxReader.ReadListBox(spot);
    case Reader::kAccessibleControl: return readers_.controlReaders.ReadAccessibleControl(spot);
    case Reader::kComboBox: return readers_.controlReaders.ReadComboBox(spot);
    case Reader::kTreeView: return readers_.controlReaders.ReadTreeView(spot);
    case Reader::kRichEdit: last_.maccText = readers_.editReaders.ReadRichEdit(spot); return;
    case Reader::kEditControl: return readers_.editReaders.ReadEditControl(spot);
    case Reader::kButton: return readers_.controlReaders.ReadButton(spot);
    case Reader::kStaticControl: return readers_.controlReaders.ReadStaticControl(spot);
  }
}

void ObjectDescriber::Identify() {
  const TimerPause quiet(seam_.panel);
  const Text& className = last_.mOfficialClassName;
  if (ContainsInLowerCase(className, u"combo")) {
    parts_.speaker.SpeakAndWait(u"It is a " + parts_.pronouncer.ClassNameToWords(className));
  } else if (!IsBlank(last_.maccRole)) {
    parts_.speaker.SpeakAndWait(u"It is a " + last_.maccRole + u". ");
    if (!ContainsInLowerCase(last_.maccDescription, u"menu"))
      parts_.speaker.SpeakAndWait(last_.maccDescription);
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
