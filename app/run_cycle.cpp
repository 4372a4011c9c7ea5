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
  parts_.delayLoop.CalibrateDelayLoop();
  parts_.midiPort.SwitchMidi(true);
  platform_.panel.SetTimerEnabled(false);
  SetUpEngine();
  SetUpPanelAndTones();
  parts_.engine.Calls().SetStartSpeed();
  platform_.panel.Minimise();
  WarmUp();
  parts_.midiPort.CloseMidiOut();
  parts_.settingsFile.WriteSettings();
  parts_.engine.Calls().SetStartSpeed();
  parts_.settingsFile.WriteSettings();
  Greet();
  // Where it cannot be written, the welcome comes again.
  std::ignore = platform_.files.Write(kFirstRunMarker, u"Been there done that.\r\n");
  parts_.midiSwitch.OpenMidiOut();
  parts_.settingsFile.ReadSettings();
  platform_.panel.SetTimerEnabled(true);
}

void RunCycle::SetUpEngine() {
  parts_.voices.ChooseEngine();
  parts_.crashLearning.CheckLastRun();
  std::ignore = platform_.input.ReportMouse(true);  // without reports clicks are not spoken
  parts_.voices.SetUpVoice();
  platform_.panel.LetMessagesRun();
}

void RunCycle::SetUpPanelAndTones() {
  parts_.desktopWindows.FindDesktopIconList(platform_.system, platform_.windows);
  parts_.toneCommands.SetFirstTones();
  parts_.positionTones.BuildNoteTables();
  platform_.panel.Minimise();
  parts_.pollLoop.MeasureScreen();
  mAppShortPath = platform_.system.ShortPath(platform_.system.ProgramFolder(), kShortPathBuffer);
  parts_.midiSwitch.OpenMidiOut();
  parts_.settingsFile.ReadSettings();
}

// A tick may switch the timer on.
void RunCycle::WarmUp() {
  for (int tick = 0; tick < kWarmUpTicks; ++tick) {
    parts_.pollLoop.Timer1_Timer();
    platform_.panel.SetTimerEnabled(false);
    parts_.speaker.SpeakText(u" ");
  }
}

void RunCycle::Greet() {
  if (platform_.files.Exists(kFirstRunMarker)) {
    parts_.speaker.SpeakAndWait(u"Pointalk is running.  Hit F1 any time for help.");
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
  if (parts_.spokenDialogs.AskSpoken(question, kBoxYesNo) != kAnswerYes) {
    parts_.speaker.SpeakRaw(u"O K nevermind.");
    platform_.system.EndProgram();
  }
  parts_.speaker.SpeakAndWait(kThanks);
  parts_.help.Instruct();
}

void RunCycle::mnuFileExit_Click() {
  parts_.midiPort.StopPositionTones();
  ConfirmQuit();
}

void RunCycle::ConfirmQuit() {
  parts_.settingsFile.WriteSettings();
  if (parts_.spokenDialogs.AskSpoken(u"Do you want to quit from Pointalk?", kBoxYesNo) != kAnswerYes) return;
  parts_.speaker.SpeakRaw(u" ");
  parts_.midiPort.CloseMidiOut();
  platform_.panel.SetTimerEnabled(false);
  parts_.speaker.SpeakAndWait(u"Pointalk is ending. Goodbye.");
  parts_.crashLearning.MarkStopped();
  platform_.system.EndProgram();
}

void RunCycle::Form_Terminate() {
  parts_.crashLearning.MarkStopped();
  parts_.speaker.Silence();
  parts_.midiPort.SilenceAll();
}

}  // namespace pointalk
