#include "app/run_cycle.h"

#include <tuple>

#include "app/texts.h"

namespace pointalk {
namespace {

constexpr FilePath kFirstRunMarker{Folder::kCurrent, u"DidWarn.flg"};

constexpr int kShortPathBuffer = 127;  // characters
constexpr int kWarmUpTicks = 3;

}  // namespace

void RunCycle::Form_Load() {
  rooms_.delay.CalibrateDelayLoop();
  rooms_.port.SwitchMidi(true);
  platform_.panel.SetTimerEnabled(false);
  SetUpEngine();
  SetUpPanelAndTones();
  rooms_.engine.Calls().SetStartSpeed();
  platform_.panel.Minimise();
  WarmUp();
  rooms_.port.CloseMidiOut();
  rooms_.settingsFile.WriteSettings();
  rooms_.engine.Calls().SetStartSpeed();
  rooms_.settingsFile.WriteSettings();
  Greet();
  // Where it cannot be written, the welcome comes again.
  std::ignore = platform_.files.Write(kFirstRunMarker, u"Been there done that.\r\n");
  rooms_.midiSwitch.OpenMidiOut();
  rooms_.settingsFile.ReadSettings();
  platform_.panel.SetTimerEnabled(true);
}

void RunCycle::SetUpEngine() {
  rooms_.voices.ChooseEngine();
  rooms_.learning.CheckLastRun();
  std::ignore = platform_.input.ReportMouse(true);  // without reports clicks are not spoken
  rooms_.voices.SetUpVoice();
  platform_.panel.LetMessagesRun();
}

void RunCycle::SetUpPanelAndTones() {
  rooms_.desktop.FindDesktopIconList(platform_.system, platform_.windows);
  rooms_.toneCommands.SetFirstTones();
  rooms_.positionTones.BuildNoteTables();
  platform_.panel.Minimise();
  rooms_.poll.MeasureScreen();
  mAppShortPath = platform_.system.ShortPath(platform_.system.ProgramFolder(), kShortPathBuffer);
  rooms_.midiSwitch.OpenMidiOut();
  rooms_.settingsFile.ReadSettings();
}

// A tick may switch the timer on.
void RunCycle::WarmUp() {
  for (int tick = 0; tick < kWarmUpTicks; ++tick) {
    rooms_.poll.Timer1_Timer();
    platform_.panel.SetTimerEnabled(false);
    rooms_.speaker.SpeakText(u" ");
  }
}

void RunCycle::Greet() {
  if (platform_.files.Exists(kFirstRunMarker)) {
    rooms_.speaker.SpeakAndWait(u"Pointalk is running.  Hit F1 any time for help.");
  } else {
    Welcome();
  }
}

void RunCycle::Welcome() {
  Text question(kGreeting);
  question.append(kRightsStatement)
      .append(
          u"It is offered as is, with no liability whatsoever.  You are the only one responsible for its "
          u"behavior, usage and results.  Do you agree?");
  if (rooms_.spokenDialogs.AskSpoken(question, kBoxYesNo) != kAnswerYes) {
    rooms_.speaker.SpeakRaw(u"O K nevermind.");
    platform_.system.EndProgram();
  }
  rooms_.speaker.SpeakAndWait(kThanks);
  rooms_.help.Instruct();
}

void RunCycle::mnuFileExit_Click() {
  rooms_.port.StopPositionTones();
  ConfirmQuit();
}

void RunCycle::ConfirmQuit() {
  rooms_.settingsFile.WriteSettings();
  if (rooms_.spokenDialogs.AskSpoken(u"Do you want to quit from Pointalk?", kBoxYesNo) != kAnswerYes) return;
  rooms_.speaker.SpeakRaw(u" ");
  rooms_.port.CloseMidiOut();
  platform_.panel.SetTimerEnabled(false);
  rooms_.speaker.SpeakAndWait(u"Pointalk is ending. Goodbye.");
  rooms_.learning.MarkStopped();
  platform_.system.EndProgram();
}

void RunCycle::Form_Terminate() {
  rooms_.learning.MarkStopped();
  rooms_.speaker.Silence();
  rooms_.port.SilenceAll();
}

}  // namespace pointalk
