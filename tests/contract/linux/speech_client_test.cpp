// The voice's connection, to servers of our own.
#include "linux/speech_client.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "linux/speech_engines.h"
#include "tests/contract/linux/speech_server.h"

namespace pointalk::linux {
namespace {

constexpr std::size_t kMoreThanItTakes = 8'000'000;
constexpr int kLooks = 20;
constexpr std::chrono::minutes kServerWait{1};

using contract::ComesToHold;
using contract::SpeechServer;

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
  const contract::SpeechSocket server;
  ASSERT_TRUE(server.IsThere());
  SpeechClient client;
  ASSERT_TRUE(client.WaitForServer(kServerWait));
  client.Say(std::string(kMoreThanItTakes, 'x'));
  const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  int quiet = 0;
  while (quiet < kLooks && std::chrono::steady_clock::now() < end) {
    quiet = IsAnotherThreadBusy() ? 0 : quiet + 1;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  EXPECT_EQ(quiet, kLooks);
}

TEST(SpeechClientTest, AConnectionThatEndsAtOnceIsMadeAgainWithoutAWord) {
  SpeechServer server([](int connection, const std::string&, const std::string& usual) {
    return connection == 1 ? SpeechServer::kClose : usual;
  });
  ASSERT_TRUE(server.IsThere());
  SpeechClient client;
  ASSERT_TRUE(ComesToHold([&] { return !server.Sent(2).empty(); }));
  EXPECT_TRUE(client.WaitForServer(kServerWait));
}

TEST(SpeechClientTest, NobodyWaitsForAServerThatWasNotThere) {
  const contract::SpeechAddress address;
  SpeechClient client;
  ASSERT_FALSE(client.WaitForServer(kServerWait));
  client.Say("one");
  EXPECT_TRUE(client.IsQuiet());
}

// The connection on which the server was sent the line; 0 when it was sent on none.
int ConnectionOf(SpeechServer& server, const std::string& line) {
  int connection = 3;
  while (connection > 0 && !server.HasSent(connection, line)) --connection;
  return connection;
}

TEST(SpeechClientTest, WhatIsSaidAfterAVoiceWasLeftIsSaidByTheNextOne) {
  SpeechServer server;
  ASSERT_TRUE(server.IsThere());
  SpeechClient client;
  ASSERT_TRUE(client.WaitForServer(kServerWait));
  client.UseType("MALE1");
  client.UseType("");
  client.Say("one");
  ASSERT_TRUE(ComesToHold([&] { return client.IsQuiet(); }));
  EXPECT_EQ(ConnectionOf(server, "one"), 2);
  EXPECT_FALSE(server.HasSent(2, "SET SELF VOICE_TYPE MALE1"));
}

TEST(SpeechClientTest, AVoiceIsListedAgainWhereThatFailed) {
  std::atomic<int> lists = 0;
  SpeechServer server([&](int, const std::string& line, const std::string& usual) {
    if (line != "LIST SYNTHESIS_VOICES" || ++lists > 1) return usual;
    return std::string("304 ERR CANT LIST VOICES\r\n");
  });
  ASSERT_TRUE(server.IsThere());
  SpeechClient client;
  ASSERT_TRUE(client.WaitForServer(kServerWait));
  client.UseListed(0);
  ASSERT_TRUE(ComesToHold([&] { return lists == 1; }));
  client.Change([](VoiceSettings& settings) { settings.rate = 20; });
  ASSERT_TRUE(ComesToHold([&] {
    client.UseListed(0);
    return ConnectionOf(server, "SET SELF SYNTHESIS_VOICE English") == 1;
  }));
  EXPECT_EQ(client.Settings().rate, 20);
}

TEST(SpeechClientTest, AVoiceThatWasChosenWhileVoicesAreListedStays) {
  std::atomic<bool> isAsked = false;
  std::atomic<bool> mayAnswer = false;
  SpeechServer server([&](int, const std::string& line, const std::string& usual) {
    if (line == "LIST SYNTHESIS_VOICES") {
      isAsked = true;
      ComesToHold([&] { return mayAnswer.load(); });
    }
    return usual;
  });
  ASSERT_TRUE(server.IsThere());
  SpeechClient client;
  ASSERT_TRUE(client.WaitForServer(kServerWait));
  client.UseListed(0);
  ASSERT_TRUE(ComesToHold([&] { return isAsked.load(); }));
  client.UseType("MALE1");
  mayAnswer = true;
  ASSERT_TRUE(ComesToHold([&] { return !client.Voices().empty(); }));
  EXPECT_EQ(client.Settings().name, "");
  EXPECT_EQ(client.Settings().type, "MALE1");
}

TEST(SpeechClientTest, AServerThatTellsNoEventsIsNotWaitedFor) {
  SpeechServer server([](int, const std::string& line, const std::string& usual) {
    return line == "." ? usual.substr(0, usual.find("701")) : usual;
  });
  ASSERT_TRUE(server.IsThere());
  SpeechClient client;
  ASSERT_TRUE(client.WaitForServer(kServerWait));
  client.Say("one");
  EXPECT_TRUE(ComesToHold([&] { return client.IsQuiet(); }));
}

TEST(SpeechClientTest, WhileATextSoundsTheServerIsAskedForASign) {
  SpeechServer server([](int, const std::string& line, const std::string& usual) {
    return line == "." ? usual.substr(0, usual.find("702")) : usual;
  });
  ASSERT_TRUE(server.IsThere());
  SpeechClient client;
  ASSERT_TRUE(client.WaitForServer(kServerWait));
  client.Say("one");
  ASSERT_TRUE(ComesToHold([&] { return server.HasSent(1, "."); }));
  EXPECT_TRUE(ComesToHold([&] {
    EXPECT_FALSE(client.IsQuiet());
    return server.Sent(1).back() != ".";
  }));
}

class LimitsOfWaits final : public Waiting {
 public:
  void WaitUntil(const std::function<bool()>& /*condition*/, std::chrono::milliseconds limit) override {
    limits.push_back(limit);
  }

  std::vector<std::chrono::milliseconds> limits;
};

TEST(LinuxSapi5VoiceTest, ALetterIsGivenTheSameTimeInEveryScript) {
  SpeechServer server;
  ASSERT_TRUE(server.IsThere());
  SpeechClient client;
  ASSERT_TRUE(client.WaitForServer(kServerWait));
  LimitsOfWaits waiting;
  Notices notices;
  LinuxSapi5Voice voice(client, waiting, notices);
  ASSERT_TRUE(voice.Create());
  EXPECT_TRUE(voice.Speak(u"door", std::nullopt));
  EXPECT_TRUE(voice.Speak(u"\u0434\u0432\u0435\u0440\u044C", std::nullopt));
  EXPECT_TRUE(voice.Speak(u"doors", std::nullopt));
  ASSERT_EQ(waiting.limits.size(), 3U);
  EXPECT_EQ(waiting.limits[1], waiting.limits[2]);
  EXPECT_LT(waiting.limits[0], waiting.limits[1]);
}

}  // namespace
}  // namespace pointalk::linux
