// Where pointalk begins: makes the seam and the form, and hands the window's events to the form.
#include <QtCore/QTimer>
#include <QtGui/QSessionManager>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>
#include <cstdlib>
#include <iostream>
#include <tuple>
#include <utility>

#include "app/mouse.h"
#include "linux/accessibility_switch.h"
#include "linux/folders.h"
#include "linux/linux_platform.h"
#include "linux/qt_text.h"
#include "linux/session.h"
#include "linux/single_start.h"
#include "linux/utf8.h"

namespace pointalk::linux {
namespace {

constexpr int kNoDisplay = 1;
constexpr int kWayland = 3;

constexpr TextView kWaylandSentence =
    u"Pointalk cannot tell where the pointer is in a Wayland session: please log out, choose a session on "
    u"X11, also called Xorg, at the log-in screen, often by the button with the gear, and log in again.";
constexpr TextView kNoObjectsSentence =
    u"Pointalk cannot see into programs and names their windows alone. Please install the package "
    u"at-spi2-core, and log in again.";
constexpr TextView kNoSessionBusSentence =
    u"Pointalk cannot see into programs and names their windows alone, because this session has no message "
    u"bus. Please install the package dbus-user-session, and log in again.";
constexpr std::chrono::seconds kSpeechServerLimit{6};
constexpr std::chrono::seconds kSpokenLimit{30};
constexpr std::chrono::seconds kReadingTime{8};
constexpr std::chrono::milliseconds kSpokenLook{100};

class FormEvents final : public PanelEvents {
 public:
  FormEvents(Mouse& form, LinuxPlatform& platform) : form_(form), platform_(platform) {}

  void OnTick() override {
    if (!platform_.display.IsOpen()) return OnUnload();
    const MissingBus missing = platform_.things.TakeMissingBus();
    if (missing != MissingBus::kNone)
      platform_.notices.Show(missing == MissingBus::kObjects ? kNoObjectsSentence : kNoSessionBusSentence);
    const StillInput still(platform_.input);
    form_.Timer1_Timer();
  }
  void OnMouse(std::int32_t message) override { form_.WinHook1_Message(message); }
  void OnClick() override { form_.Form_Click(); }
  void OnCommand(Handler handler) override { (form_.*handler)(); }
  void OnUnload() override {
    form_.Form_Terminate();
    platform_.system.EndProgram();
  }

 private:
  Mouse& form_;
  LinuxPlatform& platform_;
};

// Qt ends the program by itself when its X server goes away, as at the end of many sessions.
FormEvents* unloadedAtExit = nullptr;

void UnloadAtExit() {
  if (FormEvents* const events = std::exchange(unloadedAtExit, nullptr)) events->OnUnload();
}

void SayWayland(SpeechClient& voice) {
  std::cerr << ToUtf8(kWaylandSentence) << std::endl;
  if (voice.WaitForServer(kSpeechServerLimit)) voice.Say(SsipText(kWaylandSentence));
}

// Without an X server, which such a session may start only when it is needed or not at all.
int RefuseWaylandByVoice(EndSignals& signals) {
  SpeechClient voice;
  SayWayland(voice);
  const auto end = std::chrono::steady_clock::now() + kSpokenLimit;
  bool isOver = false;
  while (!isOver)
    isOver = voice.IsQuiet() || std::chrono::steady_clock::now() >= end || signals.WaitFor(kSpokenLook);
  return kWayland;
}

// The sentence stays until the user closes it, or has had the time to hear and to read it.
int RefuseWayland(EndSignals& signals) {
  const QString sentence = ToQt(kWaylandSentence);
  SpeechClient voice;
  SayWayland(voice);
  QMessageBox box(QMessageBox::Information, "Pointalk", sentence, QMessageBox::Ok);
  QTimer look;
  const auto end = std::chrono::steady_clock::now() + kSpokenLimit;
  const auto read = std::chrono::steady_clock::now() + kReadingTime;
  QObject::connect(&look, &QTimer::timeout, [&] {
    const auto now = std::chrono::steady_clock::now();
    if (now >= end || (now >= read && voice.IsQuiet())) box.accept();
  });
  look.start(kSpokenLook);
  signals.Serve([&box] { box.reject(); });
  box.exec();
  return kWayland;
}

int RunPointalk(SingleStart& start, EndSignals& signals) {
  std::ignore = EnterProgramFolder();
  TakeXErrorsAsAnswers();
  LinuxPlatform platform;
  Mouse form(platform.Seam());
  FormEvents events(form, platform);
  platform.panel.Serve(&events);
  unloadedAtExit = &events;
  std::ignore = std::atexit(&UnloadAtExit);  // where that fails, the next start asks whether this one crashed
  start.Serve([&platform] { platform.panel.BringUp(); });
  signals.Serve([&platform] { platform.panel.Unload(); });
  QObject::connect(qApp, &QGuiApplication::commitDataRequest,
                   [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); });
  QObject::connect(qApp, &QCoreApplication::aboutToQuit, [&platform] { platform.panel.Unload(); });
  QTimer::singleShot(0, [&platform, &form] {
    platform.clock.BeginSecond();
    form.Form_Load();
  });
  platform.panel.Run();
  events.OnUnload();
  return EXIT_SUCCESS;
}

int Main(int count, char** arguments) {
  EndSignals signals;
  if (!XDisplay().IsOpen()) {
    if (IsWaylandSession()) return RefuseWaylandByVoice(signals);
    std::cerr << "Pointalk needs a desktop on X11: there is no X server at DISPLAY.\n";
    return kNoDisplay;
  }
  // The panel is drawn by the X server that is watched, and can be read from its beginning.
  setenv("QT_QPA_PLATFORM", "xcb", 1);
  setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
  QApplication application(count, arguments);
  QApplication::setApplicationName("Pointalk");
  QApplication::setDesktopFileName("pointalk");
  QApplication::setQuitOnLastWindowClosed(false);
  if (IsWaylandSession()) return RefuseWayland(signals);
  SingleStart start;
  return start.IsFirst() ? RunPointalk(start, signals) : EXIT_SUCCESS;
}

}  // namespace
}  // namespace pointalk::linux

int main(int count, char** arguments) { return pointalk::linux::Main(count, arguments); }
