// Questions and notices that are both shown and spoken.
#pragma once

#include "app/input_state.h"
#include "platform/dialogs.h"
#include "platform/panel.h"
#include "platform/text.h"
#include "speech/speaker.h"

namespace pointalk {

// The title of every dialog that has none of its own.
inline constexpr TextView kDialogTitle = u"Pointalk";

class SpokenDialogs {
 public:
  SpokenDialogs(Dialogs& theDialogs, Panel& thePanel, InputState& theInput, Speaker& theSpeaker)
      : dialogs(theDialogs), panel(thePanel), input(theInput), speaker(theSpeaker) {}

  // A message box whose text is read aloud with a hint of its keys; the style is one of platform/dialogs.h
  // (with any other nothing is read). Gives the box's answer.
  int AskSpoken(TextView text, int mode, TextView title = kDialogTitle);

  // An input box whose prompt and proposed answer are read aloud. Gives the text typed, empty after a cancel.
  Text AskSpokenNumber(TextView prompt, TextView title, TextView proposed);

 private:
  Dialogs& dialogs;
  Panel& panel;
  InputState& input;
  Speaker& speaker;
};

}  // namespace pointalk
