#include "speech/spoken_dialogs.h"

#include <tuple>

#include "platform/timer_pause.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

// What is said after the text, so that the keys are known; empty for a style whose text is not read.
TextView KeyHint(int mode) {
  switch (mode) {
    case kBoxOk: return u" Hit Enter.";
    case kBoxYesNoCancel: return u" Y for yes, N for No, Escape for Nevermind.";
    case kBoxYesNo: return u" Y for yes, N for No.";
    default: return {};
  }
}

TextView Confirmation(int answer) {
  if (answer == kAnswerYes) return u"Yes.";
  if (answer == kAnswerNo) return u"No.";
  return u"Thank you.";
}

}  // namespace

int SpokenDialogs::AskSpoken(TextView text, int mode, TextView title) {
  const TimerPause quiet(panel_);
  clicks_.Forget();  // the click that led here is not announced
  const TextView hint = KeyHint(mode);
  if (!hint.empty()) speaker_.SpeakRaw(Replaced(text, u"\r\n", u" ").append(hint));
  const int answer = dialogs_.AskByBox(text, title, mode);
  speaker_.SpeakRaw(Confirmation(answer));
  return answer;
}

void SpokenDialogs::TellSpoken(TextView text) {
  std::ignore = AskSpoken(text, kBoxOk);  // however the box is closed, it has been shown
}

Text SpokenDialogs::AskSpokenNumber(TextView prompt, TextView title, TextView proposed) {
  const TimerPause quiet(panel_);
  Text spoken(prompt);
  if (!proposed.empty()) spoken.append(u", default = ").append(proposed).append(u".");
  clicks_.Forget();
  speaker_.SpeakRaw(spoken.append(u" When you're done typing it, please hit enter."));
  Text answer = dialogs_.AskByInput(prompt, title, proposed);
  speaker_.SpeakRaw(u"Thank you.");
  return answer;
}

}  // namespace pointalk
