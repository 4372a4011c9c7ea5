#include "linux/ssip_voices.h"

#include <poll.h>
#include <sys/socket.h>

#include <chrono>
#include <cstdlib>
#include <optional>

#include "linux/ssip.h"
#include "linux/ssip_socket.h"

namespace pointalk::linux {
namespace {

constexpr std::chrono::seconds kListLimit{20};
constexpr int kListLook = 200;     // milliseconds between two looks whether the list is unwanted
constexpr int kVoiceListed = 249;  // an answer of SSIP

std::string UserLanguage() {
  for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

}  // namespace

// On a connection of its own: some synthesizers need a second or two for their list.
std::vector<std::string> ListSpeechVoices(const std::function<bool()>& isUnwanted) {
  const auto connection = ConnectToSpeechDispatcher();
  if (!connection) return {};
  const std::string question = SsipGreeting("voices") + "\r\nLIST SYNTHESIS_VOICES\r\n";
  if (::send(connection->Number(), question.data(), question.size(), MSG_NOSIGNAL) < 0) return {};
  const std::string language = UserLanguage();
  const auto end = std::chrono::steady_clock::now() + kListLimit;
  std::vector<std::string> found;
  SsipLines answers;
  bool isOver = false;
  while (!isOver && std::chrono::steady_clock::now() < end) {
    pollfd file{connection->Number(), POLLIN, 0};
    poll(&file, 1, kListLook);
    isOver = file.revents != 0 && !ReadSsip(connection->Number(), answers);
    while (const auto line = answers.Next()) {
      if (line->code >= kFirstError && line->code < kFirstEvent) return {};
      if (line->code != kVoiceListed) continue;
      const auto voice = line->isLast ? std::nullopt : ParseSsipVoice(line->text);
      if (voice && IsForUser(voice->language, language)) found.push_back(voice->name);
      isOver = isOver || line->isLast;
    }
    if (isUnwanted()) return {};
  }
  return found;
}

}  // namespace pointalk::linux
