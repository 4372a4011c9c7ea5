#include "linux/session.h"

#include <poll.h>
#include <sys/signalfd.h>

#include <QtCore/QSocketNotifier>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "linux/owned.h"

namespace pointalk::linux {
namespace {

std::string_view Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

sigset_t EndingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&signals, signal);
  return signals;
}

}  // namespace

// The server that X programs are given there has screens of that name.
bool IsWaylandSession() {
  if (!Variable("WAYLAND_DISPLAY").empty() || Variable("XDG_SESSION_TYPE") == "wayland") return true;
  const auto screens = QGuiApplication::screens();
  return std::any_of(screens.begin(), screens.end(),
                     [](const QScreen* screen) { return screen->name().startsWith("XWAYLAND"); });
}

struct EndSignals::Signals {
  OwnedFile file;
  std::unique_ptr<QSocketNotifier> notifier;
};

EndSignals::EndSignals() : signals_(std::make_unique<Signals>()) {
  const sigset_t ending = EndingSignals();
  pthread_sigmask(SIG_BLOCK, &ending, nullptr);
  std::signal(SIGPIPE, SIG_IGN);
  signals_->file = OwnedFile(signalfd(-1, &ending, SFD_CLOEXEC | SFD_NONBLOCK));
}

EndSignals::~EndSignals() = default;

void EndSignals::Serve(std::function<void()> onEnd) {
  signals_->notifier = std::make_unique<QSocketNotifier>(signals_->file.Number(), QSocketNotifier::Read);
  QObject::connect(signals_->notifier.get(), &QSocketNotifier::activated, std::move(onEnd));
}

bool EndSignals::WaitFor(std::chrono::milliseconds limit) {
  pollfd file{signals_->file.Number(), POLLIN, 0};
  return poll(&file, 1, static_cast<int>(limit.count())) > 0;
}

}  // namespace pointalk::linux
