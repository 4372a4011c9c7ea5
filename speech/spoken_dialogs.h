// Questions and notices that are both shown and spoken.
#pragma once

#include "input/clicks.h"
#include "platform/dialogs.h"
#include "platform/panel.h"
#include "speech/speaker.h"
#include "text/text.h"

namespace pointalk {

// The title of every dialog that has none of its own.
inline constexpr TextView kDialogTitle = u"Pointalk";

class SpokenDialogs {
 public:
  SpokenDialogs(Dialogs& dialogs, Panel& panel, Clicks& clicks, Speaker& speaker)
      : dialogs_(dialogs), panel_(panel), clicks_(clicks), speaker_(speaker) {}

  // A message box whose text is read aloud with a hint of its keys; the style is one of platform/dialogs.h
  // (with any other the text is not read). Gives the box's answer.
  [[nodiscard]] int AskSpoken(TextView text, int mode, TextView title = kDialogTitle);

  // The same for a notice, which has one answer only.
  void TellSpoken(TextView text);

  // An input box whose prompt and proposed answer are read aloud. Gives the text typed, empty after a cancel.
  [[nodiscard]] Text AskSpokenNumber(TextView prompt, TextView title, TextView proposed);

 private:
  Dialogs& dialogs_;
  Panel& panel_;
  Clicks& clicks_;
  Speaker& speaker_;
};

}  // namespace pointalk
