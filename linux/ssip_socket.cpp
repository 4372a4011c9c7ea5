#include "linux/ssip_socket.h"

#include <pwd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <thread>

#include "linux/started_program.h"

namespace pointalk::linux {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kUnixAddress = "unix_socket:";
constexpr std::chrono::seconds kStartLimit{5};
// After a start that failed: the program says by the same exit status that another one is being started, as
// at the beginning of a session where a screen reader does that too. It needs half a second.
constexpr std::chrono::seconds kOthersStartLimit{2};
constexpr std::chrono::milliseconds kSocketLook{20};

// An address that is given is nobody's to start.
bool IsAddressGiven() { return std::getenv("SPEECHD_ADDRESS") != nullptr; }

std::string SocketPath() {
  const char* const given = std::getenv("SPEECHD_ADDRESS");
  const std::string_view address = given == nullptr ? "" : given;
  if (address.starts_with(kUnixAddress)) return std::string(address.substr(kUnixAddress.size()));
  if (!address.empty()) return {};
  const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime != nullptr && *runtime != '\0')
    return (fs::path(runtime) / "speech-dispatcher" / "speechd.sock").string();
  const char* const home = std::getenv("HOME");
  return home == nullptr ? "" : (fs::path(home) / ".cache" / "speech-dispatcher" / "speechd.sock").string();
}

std::optional<OwnedFile> Connect() {
  const std::string path = SocketPath();
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.empty() || path.size() >= sizeof address.sun_path) return std::nullopt;
  std::memcpy(address.sun_path, path.c_str(), path.size());
  OwnedFile socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (!socket || ::connect(socket.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    return std::nullopt;
  return socket;
}

// It makes itself a server in the background and returns. For how long its socket is worth looking for.
std::chrono::seconds Spawn(const std::string& program) {
  const auto child = StartProgram(program, {"--spawn"});
  if (!child) return {};
  const auto end = std::chrono::steady_clock::now() + kStartLimit;
  while (std::chrono::steady_clock::now() < end) {
    int status = 0;
    const pid_t ended = waitpid(*child, &status, WNOHANG);
    if (ended == *child && status != 0) return kOthersStartLimit;
    if (ended != 0) return kStartLimit;
    std::this_thread::sleep_for(kSocketLook);
  }
  return kStartLimit;
}

std::string UserName() {
  const passwd* const user = getpwuid(getuid());
  return user == nullptr ? "user" : user->pw_name;
}

}  // namespace

std::optional<OwnedFile> ConnectToSpeechDispatcher() {
  auto socket = Connect();
  if (socket || IsAddressGiven()) return socket;
  const std::string program = FindProgram("speech-dispatcher");
  if (program.empty()) return std::nullopt;
  const auto limit = Spawn(program);
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!socket && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(kSocketLook);
    socket = Connect();
  }
  return socket;
}

std::string SsipGreeting(const char* connection) {
  return "SET SELF CLIENT_NAME " + UserName() + ":pointalk:" + connection;
}

bool ReadSsip(int socket, SsipLines& lines) {
  std::array<char, 4096> bytes{};
  for (;;) {
    const ssize_t count = ::recv(socket, bytes.data(), bytes.size(), MSG_DONTWAIT);
    if (count > 0) {
      lines.Add({bytes.data(), static_cast<std::size_t>(count)});
    } else {
      return count < 0 && (errno == EAGAIN || errno == EINTR);
    }
  }
}

bool HasSpeechDispatcher() { return IsAddressGiven() || !FindProgram("speech-dispatcher").empty(); }

}  // namespace pointalk::linux
