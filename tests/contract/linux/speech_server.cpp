#include "tests/contract/linux/speech_server.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <utility>

namespace pointalk::contract {
namespace {

constexpr char kSpeechSocket[] = "speech server.sock";
constexpr int kServerLook = 20;  // milliseconds between two looks whether it is wanted

}  // namespace

bool ComesToHold(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

SpeechAddress::SpeechAddress() {
  const char* const before = std::getenv("SPEECHD_ADDRESS");
  if (before != nullptr) before_ = before;
  setenv("SPEECHD_ADDRESS", (std::string("unix_socket:") + kSpeechSocket).c_str(), 1);
}

SpeechAddress::~SpeechAddress() { setenv("SPEECHD_ADDRESS", before_.c_str(), 1); }

SpeechSocket::SpeechSocket() : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, kSpeechSocket, sizeof address.sun_path - 1);
  isThere_ = bind(socket_.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
             listen(socket_.Number(), 4) == 0;
}

SpeechSocket::~SpeechSocket() { std::filesystem::remove(kSpeechSocket); }

SpeechServer::SpeechServer(Answer answer) : answer_(std::move(answer)), thread_([this] { Run(); }) {}

SpeechServer::~SpeechServer() {
  isUnwanted_ = true;
  thread_.join();
}

std::vector<std::string> SpeechServer::Sent(int connection) {
  const std::lock_guard lock(mutex_);
  return sent_[connection];
}

bool SpeechServer::HasSent(int connection, const std::string& line) {
  const auto sent = Sent(connection);
  return std::find(sent.begin(), sent.end(), line) != sent.end();
}

void SpeechServer::Run() {
  while (!isUnwanted_) {
    std::vector<pollfd> files{{socket_.Number(), POLLIN, 0}};
    for (const Connection& connection : connections_) files.push_back({connection.file.Number(), POLLIN, 0});
    poll(files.data(), files.size(), kServerLook);
    for (std::size_t i = 1; i < files.size(); ++i) {
      Connection& connection = connections_[i - 1];
      if (files[i].revents != 0 && !Serve(connection)) connection.file.Close();
    }
    std::erase_if(connections_, [](const Connection& connection) { return !connection.file; });
    if (files[0].revents != 0) Accept();
  }
}

void SpeechServer::Accept() {
  Connection connection{linux::OwnedFile(accept(socket_.Number(), nullptr, nullptr)), ++accepted_, {}, false};
  if (answer_(connection.number, "", "") != kClose) connections_.push_back(std::move(connection));
}

bool SpeechServer::Serve(Connection& connection) {
  std::array<char, 4096> bytes{};
  const ssize_t count = recv(connection.file.Number(), bytes.data(), bytes.size(), 0);
  if (count <= 0) return false;
  connection.bytes.append(bytes.data(), static_cast<std::size_t>(count));
  for (auto end = connection.bytes.find("\r\n"); end != std::string::npos;
       end = connection.bytes.find("\r\n")) {
    const std::string line = connection.bytes.substr(0, end);
    connection.bytes.erase(0, end + 2);
    if (!Take(connection, line)) return false;
  }
  return true;
}

bool SpeechServer::Take(Connection& connection, const std::string& line) {
  {
    const std::lock_guard lock(mutex_);
    sent_[connection.number].push_back(line);
  }
  const std::string answer = answer_(connection.number, line, Usual(connection, line));
  if (answer == kClose) return false;
  return send(connection.file.Number(), answer.data(), answer.size(), MSG_NOSIGNAL) >= 0;
}

std::string SpeechServer::Usual(Connection& connection, const std::string& line) {
  if (connection.isInText && line != ".") return {};
  if (std::exchange(connection.isInText, line == "SPEAK")) {
    const std::string number = std::to_string(++texts_);
    const auto event = [&](const std::string& code, const std::string& name) {
      return code + '-' + number + "\r\n" + code + "-1\r\n" + code + ' ' + name + "\r\n";
    };
    return "225-" + number + "\r\n225 OK MESSAGE QUEUED\r\n" + event("701", "BEGIN") + event("702", "END");
  }
  if (connection.isInText) return "230 OK RECEIVING DATA\r\n";
  if (line == "LIST SYNTHESIS_VOICES") return "249-English\ten\tnone\r\n249 OK VOICE LIST SENT\r\n";
  return "200 OK\r\n";
}

}  // namespace pointalk::contract
