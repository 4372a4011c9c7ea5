// Servers of speech for the tests of the voice's connection.
#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "linux/owned.h"

namespace pointalk::contract {

// Whether it comes to hold; waits half a minute at most.
bool ComesToHold(const std::function<bool()>& condition);

// The address that clients connect to for as long as this lives.
class SpeechAddress {
 public:
  SpeechAddress();
  ~SpeechAddress();
  SpeechAddress(const SpeechAddress&) = delete;
  SpeechAddress& operator=(const SpeechAddress&) = delete;

 private:
  std::string before_;
};

// A socket there, from which nobody reads.
class SpeechSocket {
 public:
  SpeechSocket();
  ~SpeechSocket();
  SpeechSocket(const SpeechSocket&) = delete;
  SpeechSocket& operator=(const SpeechSocket&) = delete;

  bool IsThere() const { return isThere_; }
  int Number() const { return socket_.Number(); }

 private:
  SpeechAddress address_;
  linux::OwnedFile socket_;
  bool isThere_ = false;
};

// A server that speaks SSIP: a text begins as soon as it is taken, and ends at once.
class SpeechServer {
 public:
  // What is answered instead of the usual to a line of the connection of that number, the first being 1;
  // kClose closes it. A new connection counts as an empty line.
  using Answer =
      std::function<std::string(int connection, const std::string& line, const std::string& usual)>;
  static constexpr char kClose[] = "close";

  explicit SpeechServer(Answer answer = [](int, const std::string&, const std::string& usual) {
    return usual;
  });
  ~SpeechServer();

  bool IsThere() const { return socket_.IsThere(); }

  // What the connection has sent until now, the lines of texts among it.
  std::vector<std::string> Sent(int connection);
  bool HasSent(int connection, const std::string& line);

 private:
  struct Connection {
    linux::OwnedFile file;
    int number = 0;
    std::string bytes;  // of a line that has not ended
    bool isInText = false;
  };

  void Run();
  void Accept();
  bool Serve(Connection& connection);
  bool Take(Connection& connection, const std::string& line);
  std::string Usual(Connection& connection, const std::string& line);

  SpeechSocket socket_;
  Answer answer_;
  std::vector<Connection> connections_;
  int accepted_ = 0;
  int texts_ = 0;
  std::mutex mutex_;
  std::map<int, std::vector<std::string>> sent_;
  std::atomic<bool> isUnwanted_ = false;
  std::thread thread_;
};

}  // namespace pointalk::contract
