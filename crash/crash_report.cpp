// The command and the report.
#include "crash/crash_report.h"

#include <tuple>

#include "crash/crash_learning.h"
#include "text/letters.h"

namespace pointalk {
namespace {

constexpr int kShowNormal = 1;

}  // namespace

Text CrashReportText(const ObjectDescription& description) {
  const struct {
    TextView label;
    const Text& field;
  } lines[] = {
      {u"mOfficialClassName = ", description.mOfficialClassName},
      {u"maccName = ", description.maccName},
      {u"maccValue = ", description.maccValue},
      {u"maccText = ", description.maccText},
      {u"maccRole = ", description.maccRole},
      {u"maccDescription = ", description.maccDescription},
      {u"maccParent = ", description.maccParent},
  };
  Text report;
  for (const auto& line : lines) {
    if (!report.empty()) report.append(u"\r\n");
    report.append(line.label).append(line.field);
  }
  return report;
}

void CrashReport::mnuTroubleCrashReport_Click() {
  port.StopPositionTones();
  const int answer = dialogs.AskSpoken(
      u"Corvane is serious about reliability.  In the unlikely event that viewing a certain object were to "
      u"crash Pointalk, you could use this tool to send us a crash report. Do you need to send one?",
      kBoxYesNo, u"Crash Report Dialog");
  if (answer != kAnswerYes) {
    speaker.SpeakAndWait(u"Crash Report canceled");
    return;
  }
  speaker.SpeakAndWait(
      u"We will send a crash report to Corvane, but first we need to gather information about the object "
      u"that has been causing Pointalk to crash.  I have disabled all but the safest of accessibility "
      u"methods. This should allow you to navigate more safely, but with limited narration. Please use this "
      u"mode to find and Right Click on the object that has been giving you trouble.  As soon as you right "
      u"click on it we will make the report. If Right Clicking the object doesn't start me talking again, "
      u"hit the Shift key.");
  mCrashReportArmed = true;
}

void CrashReport::ReportIfAsked() {
  if (ToLower(input.mPendingEventText) != u"right click" && !input.mShiftDown) return;
  port.StopPositionTones();
  // Where the clipboard is not to be had, the message is sent without the facts.
  std::ignore = system.SetClipboard(CrashReportText(description));
  const Text link = u"mailto:" + Text(kSupportAddress) + u"?subject=CrashReport";
  // Where nothing opens it, the facts are on the clipboard.
  std::ignore = system.ShellOpen(u"open", u"start", link, u"", kShowNormal);
  speaker.SpeakAndWait(
      u"I have asked your browser to create an email message that you can send.\r\nI have also copied some "
      u"special information to your windows clipboard. \r\nPlease paste it into the email message, and then "
      u"add your description \r\nof the troublesome object, and what program it is part of, including "
      u"\r\nthe version number and Home Web Page U R L, if you have it.");
  mCrashReportArmed = false;
}

}  // namespace pointalk
