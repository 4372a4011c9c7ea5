// Instructions and About.
#include "app/help.h"

#include <tuple>

#include "app/texts.h"
#include "app/timer_pause.h"
#include "text/text_rules.h"

namespace pointalk {

void Help::Instruct() {
  // Respelt for the engine's ear only; the box shows the word as it is.
  speaker.SpeakRaw(Replaced(kInstructions, u"navigational", u"navigeighshnl"));
  std::ignore = dialogs.AskByBox(kInstructions, u"Pointalk Instructions", kBoxOk);
  speaker.SpeakAndWait(kThanks);
}

void Help::mnuHelpInstructions_Click() {
  const TimerPause quiet(panel);
  port.StopPositionTones();
  Instruct();
}

void Help::mnuHelpAbout_Click() {
  const TimerPause quiet(panel);
  input.mPendingEventText.clear();
  port.StopPositionTones();
  std::ignore = spokenDialogs.AskSpoken(Text(kGreeting).append(kRightsStatement), kBoxOk);
  speaker.SpeakRaw(u"OK.");
}

}  // namespace pointalk
