#include "linux/ssip_socket.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <thread>

extern char** environ;

namespace pointalk::linux {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kUnixAddress = "unix_socket:";
constexpr std::chrono::seconds kStartLimit{5};
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

std::string FindProgram(std::string_view name) {
  const char* const variable = std::getenv("PATH");
  std::istringstream folders(variable == nullptr ? "/usr/bin" : variable);
  for (std::string folder; std::getline(folders, folder, ':');) {
    const fs::path program = fs::path(folder) / name;
    if (::access(program.c_str(), X_OK) == 0) return program.string();
  }
  return {};
}

// It makes itself a server in the background and returns.
bool Spawn(const std::string& program) {
  std::string path = program;
  std::string how = "--spawn";
  char* const arguments[] = {path.data(), how.data(), nullptr};
  pid_t child = 0;
  if (posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, environ) != 0) return false;
  const auto end = std::chrono::steady_clock::now() + kStartLimit;
  while (std::chrono::steady_clock::now() < end) {
    int status = 0;
    if (waitpid(child, &status, WNOHANG) != 0) return true;
    std::this_thread::sleep_for(kSocketLook);
  }
  return true;
}

}  // namespace

std::optional<OwnedFile> ConnectToSpeechDispatcher() {
  auto socket = Connect();
  if (socket || IsAddressGiven()) return socket;
  const std::string program = FindProgram("speech-dispatcher");
  if (program.empty() || !Spawn(program)) return std::nullopt;
  const auto end = std::chrono::steady_clock::now() + kStartLimit;
  while (!socket && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(kSocketLook);
    socket = Connect();
  }
  return socket;
}

bool HasSpeechDispatcher() { return IsAddressGiven() || !FindProgram("speech-dispatcher").empty(); }

}  // namespace pointalk::linux
