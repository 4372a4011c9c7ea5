#include "linux/panel.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QMetaObject>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <utility>

#include "linux/panel_window.h"

namespace pointalk::linux {
namespace {

constexpr int kFirstInterval = 30;  // milliseconds
constexpr int kLook = 5;            // milliseconds between two looks at what is waited for

}  // namespace

struct LinuxPanel::Window {
  explicit Window(PanelWindow::Receivers receivers) : panel(std::move(receivers)) {
    timer.setTimerType(Qt::PreciseTimer);
    timer.setInterval(kFirstInterval);
  }

  PanelWindow panel;
  QTimer timer;
};

LinuxPanel::LinuxPanel()
    : window_(std::make_unique<Window>(PanelWindow::Receivers{
          [this](Handler handler) { Tell([this, handler] { events_->OnCommand(handler); }); },
          [this] { Tell([this] { events_->OnClick(); }); }, [this] { Unload(); }})) {
  QObject::connect(&window_->timer, &QTimer::timeout, [this] { TellTick(); });
}

LinuxPanel::~LinuxPanel() = default;

void LinuxPanel::Run() { QApplication::exec(); }

void LinuxPanel::BringUp() {
  window_->panel.setWindowState(window_->panel.windowState() & ~Qt::WindowMinimized);
  window_->panel.show();
  window_->panel.raise();
  window_->panel.activateWindow();
}

void LinuxPanel::PostMouse(std::int32_t message) {
  QMetaObject::invokeMethod(
      &window_->panel, [this, message] { Tell([this, message] { events_->OnMouse(message); }); },
      Qt::QueuedConnection);
}

void LinuxPanel::Unload() {
  if (events_ != nullptr) events_->OnUnload();
}

void LinuxPanel::Minimise() { window_->panel.showMinimized(); }

// A tick switches the timer off and on again around what it must not be disturbed in. The timer itself goes
// on meanwhile, so that the next tick comes 30 ms after this one began and not after it ended; it is stopped
// only when it fires while nobody wants it.
void LinuxPanel::SetTimerEnabled(bool enabled) {
  timerEnabled_ = enabled;
  if (enabled && !window_->timer.isActive()) window_->timer.start();
}

void LinuxPanel::SetTimerInterval(int milliseconds) {
  if (milliseconds != window_->timer.interval()) window_->timer.setInterval(milliseconds);
}

void LinuxPanel::TellTick() {
  if (!timerEnabled_) return window_->timer.stop();
  if (waits_ > 0 || !mayTick_ || events_ == nullptr) return;
  if (ticksOnce_) mayTick_ = false;
  events_->OnTick();
}

bool LinuxPanel::MenuChecked(TextView name) { return window_->panel.IsChecked(name); }

void LinuxPanel::SetMenuChecked(TextView name, bool checked) { window_->panel.Check(name, checked); }

void LinuxPanel::LetMessagesRun() {
  const bool tickedOnce = std::exchange(ticksOnce_, true);
  const bool mayTick = mayTick_;
  QCoreApplication::processEvents();
  ticksOnce_ = tickedOnce;
  mayTick_ = mayTick;
}

void LinuxPanel::WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
  ++waits_;
  QTimer look;
  look.start(kLook);
  QElapsedTimer waited;
  waited.start();
  QEventLoop loop;
  while (!condition() && waited.elapsed() < limit.count()) loop.processEvents(QEventLoop::WaitForMoreEvents);
  --waits_;
  if (!heldBack_.empty())
    QMetaObject::invokeMethod(
        &window_->panel, [this] { TellHeldBack(); }, Qt::QueuedConnection);
}

void LinuxPanel::Tell(std::function<void()> event) {
  if (events_ == nullptr) return;
  if (waits_ > 0 || !heldBack_.empty()) {
    heldBack_.push_back(std::move(event));
  } else {
    event();
  }
}

// An event may lead to another wait; what is left then comes after that.
void LinuxPanel::TellHeldBack() {
  while (waits_ == 0 && !heldBack_.empty()) {
    const std::function<void()> event = std::move(heldBack_.front());
    heldBack_.pop_front();
    event();
  }
}

}  // namespace pointalk::linux
