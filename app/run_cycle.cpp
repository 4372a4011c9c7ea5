// The order in which the program comes and goes.
#include "app/run_cycle.h"

#include <tuple>

#include "app/texts.h"

namespace pointalk {
namespace {

constexpr FilePath kFirstRunMarker{Folder::kCurrent, u"DidWarn.flg"};

constexpr int kShortPathBuffer = 127;  // characters
constexpr int kWarmUpTicks = 3;
constexpr std::int32_t kFirstFormat = 1;
constexpr std::int32_t kFirstPreset = 1;
constexpr std::int32_t kFirstInstrument = 50;

}  // namespace

void RunCycle::Form_Load() {
  rooms.delay.CalibrateDelayLoop();
  rooms.port.SwitchMidiOn();
  platform.panel.SetTimerEnabled(false);
  SetUpEngine();
  SetUpPanelAndTones();
  rooms.voices.SetStartSpeed();
  platform.panel.Minimise();
  WarmUp();
  rooms.port.CloseMidiOut();
  rooms.settingsFile.WriteSettings();
  rooms.voices.SetStartSpeed();
  rooms.settingsFile.WriteSettings();
  Greet();
  // Where it cannot be written, the welcome comes again.
  std::ignore = platform.files.Write(kFirstRunMarker, u"Been there done that.\r\n");
  rooms.port.OpenMidiOut();
  rooms.settingsFile.ReadSettings();
  platform.panel.SetTimerEnabled(true);
}

void RunCycle::SetUpEngine() {
  rooms.voices.ChooseEngine();
  rooms.learning.CheckLastRun();
  std::ignore = platform.input.ReportMouse(true);  // without reports clicks are not spoken
  rooms.voices.SetUpVoice();
  platform.panel.LetMessagesRun();
}

void RunCycle::SetUpPanelAndTones() {
  rooms.desktop.FindDesktopIconList(platform.system, platform.windows);
  rooms.toneSettings.mMelodyFormat = kFirstFormat;
  rooms.toneSettings.mInstrumentPreset = kFirstPreset;
  rooms.port.channels.mChannelProgram[kHigherToneChannel] = kFirstInstrument;
  rooms.port.channels.mChannelProgram[kLowerToneChannel] = kFirstInstrument;
  rooms.tones.BuildNoteTables();
  platform.panel.Minimise();
  rooms.poll.MeasureScreen();
  mAppShortPath = platform.system.ShortPath(platform.system.ProgramFolder(), kShortPathBuffer);
  rooms.port.OpenMidiOut();
  rooms.settingsFile.ReadSettings();
}

// A tick may switch the timer on.
void RunCycle::WarmUp() {
  for (int tick = 0; tick < kWarmUpTicks; ++tick) {
    rooms.poll.Timer1_Timer();
    platform.panel.SetTimerEnabled(false);
    rooms.speaker.SpeakText(u" ");
  }
}

void RunCycle::Greet() {
  if (platform.files.Exists(kFirstRunMarker)) {
    rooms.speaker.SpeakAndWait(u"Pointalk is running.  Hit F1 any time for help.");
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
  if (rooms.dialogs.AskSpoken(question, kBoxYesNo) != kAnswerYes) {
    rooms.speaker.SpeakRaw(u"O K nevermind.");
    platform.system.EndProgram();
  }
  rooms.speaker.SpeakAndWait(kThanks);
  rooms.help.Instruct();
}

void RunCycle::mnuFileExit_Click() {
  rooms.port.StopPositionTones();
  ConfirmQuit();
}

void RunCycle::ConfirmQuit() {
  rooms.settingsFile.WriteSettings();
  if (rooms.dialogs.AskSpoken(u"Do you want to quit from Pointalk?", kBoxYesNo) != kAnswerYes) return;
  rooms.speaker.SpeakRaw(u" ");
  rooms.port.CloseMidiOut();
  platform.panel.SetTimerEnabled(false);
  rooms.speaker.SpeakAndWait(u"Pointalk is ending. Goodbye.");
  rooms.learning.MarkStopped();
  platform.system.EndProgram();
}

void RunCycle::Form_Terminate() {
  rooms.learning.MarkStopped();
  if (rooms.voiceSettings.mSapiVersion == 5) {
    std::ignore = rooms.engine.Speak(u" ", kSpeakAsyncPurge);  // a silent engine has nothing to cut off
  } else if (auto* control = rooms.engine.AsSapi4()) {
    std::ignore = control->AudioReset();
  }
  rooms.port.SilenceAll();
}

}  // namespace pointalk
