#include "crash/crash_report.h"

#include <tuple>

#include "crash/crash_learning.h"
#include "text/letters.h"

namespace pointalk {
namespace {

constexpr int kShowNormal = 1;

}  // namespace

void CrashReport::mnuTroubleCrashReport_Click() {
  midiPort_.StopPositionTones();
  const int answer = spokenDialogs_.AskSpoken(
      u"Corvane is serious about reliability.  In the unlikely event that viewing a certain object were to "
      u"crash Pointalk, you could use this tool to send us a crash report. Do you need to send one?",
      kBoxYesNo, u"Crash Report Dialog");
  if (answer != kAnswerYes) {
    speaker_.SpeakAndWait(u"Crash Report canceled");
    return;
  }
  speaker_.SpeakAndWait(
      u"We will send a crash report to Corvane, but first we need to gather information about the object "
      u"that has been causing Pointalk to crash.  I have disabled all but the safest of accessibility "
      u"methods. This should allow you to navigate more safely, but with limited narration. Please use this "
      u"mode to find and Right Click on the object that has been giving you trouble.  As soon as you right "
      u"click on it we will make the report. If Right Clicking the object doesn't start me talking again, "
      u"hit the Shift key.");
  mCrashReportArmed = true;
}

void CrashReport::ReportIfAsked(TextView facts) {
  if (ToLower(clicks_.Pending()) != u"right click" && !keys_.ShiftDown()) return;
  midiPort_.StopPositionTones();
  // Where the clipboard cannot be set, the message is sent without the facts.
  std::ignore = system_.SetClipboard(facts);
  const Text link = u"mailto:" + Text(kSupportAddress) + u"?subject=CrashReport";
  // Where no program opens it, the facts are on the clipboard.
  std::ignore = system_.ShellOpen(u"open", u"start", link, u"", kShowNormal);
  speaker_.SpeakAndWait(
      u"I have asked your browser to create an email message that you can send.\r\nI have also copied some "
      u"special information to your windows clipboard. \r\nPlease paste it into the email message, and then "
      u"add your description \r\nof the troublesome object, and what program it is part of, including "
      u"\r\nthe version number and Home Web Page U R L, if you have it.");
  mCrashReportArmed = false;
}

}  // namespace pointalk
