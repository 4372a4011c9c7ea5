#include "linux/single_start.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QtCore/QSocketNotifier>
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <tuple>

#include "linux/folders.h"
#include "linux/owned.h"

namespace pointalk::linux {
namespace {

// A name that lives as long as its socket, unlike a file: nothing is left behind by a crash. It stands for
// the user, the display and the folder, since each of them may be run once.
struct Name {
  sockaddr_un address{};
  socklen_t length = 0;
};

Name PlaceName() {
  const char* const display = std::getenv("DISPLAY");
  const std::string all = std::string(display == nullptr ? "" : display) + ' ' + ProgramFolderPath().string();
  const std::string text =
      "pointalk-" + std::to_string(getuid()) + '-' + std::to_string(std::hash<std::string>()(all));
  Name name;
  name.address.sun_family = AF_UNIX;
  std::copy(text.begin(), text.end(), name.address.sun_path + 1);
  name.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + text.size());
  return name;
}

bool IsOurUsers(int connection) {
  ucred other{};
  socklen_t size = sizeof other;
  return getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &other, &size) == 0 && other.uid == getuid();
}

}  // namespace

struct SingleStart::Place {
  OwnedFile socket{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)};
  std::unique_ptr<QSocketNotifier> notifier;
};

SingleStart::SingleStart() : place_(std::make_unique<Place>()) {
  const Name name = PlaceName();
  const auto* const address = reinterpret_cast<const sockaddr*>(&name.address);
  if (bind(place_->socket.Number(), address, name.length) == 0) {
    std::ignore = listen(place_->socket.Number(), 4);  // where that fails, another start is not heard
  } else if (errno == EADDRINUSE) {
    // To connect says it all. A program of another user that has the name keeps nobody from starting.
    const bool isTold = connect(place_->socket.Number(), address, name.length) == 0;
    isFirst_ = isTold && !IsOurUsers(place_->socket.Number());
    if (isFirst_) place_->socket.Close();
  }
}

SingleStart::~SingleStart() = default;

void SingleStart::Serve(std::function<void()> onOtherStart) {
  if (!place_->socket) return;
  place_->notifier = std::make_unique<QSocketNotifier>(place_->socket.Number(), QSocketNotifier::Read);
  QObject::connect(place_->notifier.get(), &QSocketNotifier::activated,
                   [this, onOtherStart = std::move(onOtherStart)] {
                     const OwnedFile other(accept4(place_->socket.Number(), nullptr, nullptr, SOCK_CLOEXEC));
                     if (other && IsOurUsers(other.Number())) onOtherStart();
                   });
}

}  // namespace pointalk::linux
