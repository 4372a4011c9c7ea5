// The voice's connection, to a server of our own.
#include "linux/speech_client.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace pointalk::linux {
namespace {

constexpr char kSocket[] = "hung server.sock";
constexpr std::size_t kMoreThanItTakes = 8'000'000;
constexpr int kLooks = 20;

// A server of speech that takes nothing, for as long as this lives.
class HungServer {
 public:
  HungServer() : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, kSocket, sizeof address.sun_path - 1);
    isThere_ = bind(socket_.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
               listen(socket_.Number(), 4) == 0;
    const char* const before = std::getenv("SPEECHD_ADDRESS");
    if (before != nullptr) before_ = before;
    setenv("SPEECHD_ADDRESS", (std::string("unix_socket:") + kSocket).c_str(), 1);
  }
  ~HungServer() {
    setenv("SPEECHD_ADDRESS", before_.c_str(), 1);
    std::filesystem::remove(kSocket);
  }
  HungServer(const HungServer&) = delete;
  HungServer& operator=(const HungServer&) = delete;

  bool IsThere() const { return isThere_; }

 private:
  OwnedFile socket_;
  std::string before_;
  bool isThere_ = false;
};

// Whether a thread of this program runs beside the one that asks.
bool IsAnotherThreadBusy() {
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    if (task.path().filename() == std::to_string(gettid())) continue;
    std::ifstream file(task.path() / "stat");
    std::string stat;
    std::getline(file, stat);
    const auto name = stat.rfind(')');
    if (name != std::string::npos && stat.substr(name, 3) == ") R") return true;
  }
  return false;
}

TEST(SpeechClientTest, WhatAServerDoesNotTakeKeepsNoThreadBusy) {
  const HungServer server;
  ASSERT_TRUE(server.IsThere());
  SpeechClient client;
  ASSERT_TRUE(client.WaitForServer(std::chrono::minutes(1)));
  client.Say(std::string(kMoreThanItTakes, 'x'));
  const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  int quiet = 0;
  while (quiet < kLooks && std::chrono::steady_clock::now() < end) {
    quiet = IsAnotherThreadBusy() ? 0 : quiet + 1;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  EXPECT_EQ(quiet, kLooks);
}

}  // namespace
}  // namespace pointalk::linux
