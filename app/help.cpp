#include "app/help.h"

#include <tuple>

#include "app/texts.h"
#include "platform/timer_pause.h"
#include "text/text_rules.h"

namespace pointalk {

void Help::Instruct() {
  // Respelt for the engine's ear only; the box shows the word as it is.
  speaker_.SpeakRaw(Replaced(kInstructions, u"navigational", u"navigeighshnl"));
  std::ignore = dialogs_.AskByBox(kInstructions, u"Pointalk Instructions", kBoxOk);  // it has one button
  speaker_.SpeakAndWait(kThanks);
}

void Help::mnuHelpInstructions_Click() {
  const TimerPause quiet(panel_);
  midiPort_.StopPositionTones();
  Instruct();
}

void Help::mnuHelpAbout_Click() {
  const TimerPause quiet(panel_);
  clicks_.Forget();
  midiPort_.StopPositionTones();
  spokenDialogs_.TellSpoken(Text(kGreeting).append(kRightsStatement));
  speaker_.SpeakRaw(u"OK.");
}

}  // namespace pointalk
