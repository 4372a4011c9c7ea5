#include "linux/speech_client.h"

#include <poll.h>
#include <pwd.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <tuple>
#include <utility>

#include "linux/ssip_socket.h"

namespace pointalk::linux {
namespace {

using Moment = std::chrono::steady_clock::time_point;

constexpr std::size_t kMostUnanswered = 8;        // texts that go out before the server has taken one of them
constexpr std::chrono::seconds kConnectPause{1};  // between two attempts
constexpr std::chrono::seconds kKeptLimit{5};     // after which words are not worth saying any more
constexpr std::chrono::seconds kListLimit{20};
constexpr std::chrono::seconds kTakenLimit{5};  // after which a server that has not taken a text is hung

constexpr int kVoiceListed = 249;  // an answer of SSIP

std::string UserName() {
  const passwd* const user = getpwuid(getuid());
  return user == nullptr ? "user" : user->pw_name;
}

std::string Greeting(const char* connection) {
  return "SET SELF CLIENT_NAME " + UserName() + ":pointalk:" + connection;
}

std::string UserLanguage() {
  for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

// What is there to be read; false when the connection has ended.
bool ReadInto(int socket, SsipLines& lines) {
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

}  // namespace

struct SpeechClient::State {
  std::mutex mutex;
  std::condition_variable changed;
  OwnedFile wake{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
  OwnedFile socket;
  bool isTried = false;  // the first attempt to connect is over
  bool isUnwanted = false;
  bool mustConnectAgain = false;

  std::string out;   // that the socket has not taken yet
  std::string kept;  // a line that waits until words can go out
  Moment keptAt;
  bool isCutOff = false;  // nothing was said since the last cut
  SsipTalk talk;
  SsipLines lines;

  std::vector<std::string> voices;

  void Wake() { std::ignore = eventfd_write(wake.Number(), 1); }  // it cannot be full
  bool IsHung() const {
    const auto oldest = talk.OldestTextDue();
    return oldest && std::chrono::steady_clock::now() - *oldest > kTakenLimit;
  }
  bool CanSpeak() const { return socket && out.empty() && talk.TextsDue() < kMostUnanswered; }

  void Send(std::string_view bytes);
  void SendOut();
  void SpeakNow(const std::string& line);
  void SpeakKept();
  void Lose();

  void Run();
  bool Connect(std::unique_lock<std::mutex>& lock);
  void Wait(std::unique_lock<std::mutex>& lock);
  void ListVoices();
};

// What the socket does not take waits for the thread.
void SpeechClient::State::Send(std::string_view bytes) {
  out.append(bytes);
  SendOut();
  if (!out.empty()) Wake();
}

void SpeechClient::State::SendOut() {
  while (socket && !out.empty()) {
    const ssize_t sent = ::send(socket.Number(), out.data(), out.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return;
    out.erase(0, static_cast<std::size_t>(sent));
  }
}

void SpeechClient::State::SpeakNow(const std::string& line) {
  isCutOff = false;
  Send(talk.Speak(line, std::chrono::steady_clock::now()));
}

void SpeechClient::State::SpeakKept() {
  if (kept.empty() || !CanSpeak()) return;
  const std::string line = std::exchange(kept, {});
  if (std::chrono::steady_clock::now() - keptAt > kKeptLimit) return;
  SpeakNow(line);
}

void SpeechClient::State::Lose() {
  socket.Close();
  out.clear();
  talk.Begin();
  lines = SsipLines();
}

bool SpeechClient::State::Connect(std::unique_lock<std::mutex>& lock) {
  lock.unlock();
  auto made = ConnectToSpeechDispatcher();
  lock.lock();
  isTried = true;
  mustConnectAgain = false;
  if (made) {
    Lose();
    socket = std::move(*made);
    Send(talk.Command(Greeting("main")));
    Send(talk.Command("SET SELF NOTIFICATION END on"));
    Send(talk.Command("SET SELF NOTIFICATION CANCEL on"));
    Send(talk.SetUp());
    SpeakKept();
  } else {
    kept.clear();
  }
  changed.notify_all();
  return socket.Number() >= 0;
}

void SpeechClient::State::Run() {
  std::unique_lock lock(mutex);
  Moment last{};
  while (!isUnwanted) {
    const Moment now = std::chrono::steady_clock::now();
    const bool wanted = !isTried || mustConnectAgain || !kept.empty();
    if ((!socket || mustConnectAgain) && wanted && now - last >= kConnectPause) {
      last = now;
      std::ignore = Connect(lock);
    }
    Wait(lock);
  }
}

// Until there is something to be read or written, or somebody wants something.
void SpeechClient::State::Wait(std::unique_lock<std::mutex>& lock) {
  const short events = out.empty() ? POLLIN : POLLIN | POLLOUT;
  std::array<pollfd, 2> files{{{wake.Number(), POLLIN, 0}, {socket.Number(), events, 0}}};
  const bool waitsToConnect = (!socket && !kept.empty()) || mustConnectAgain;
  lock.unlock();
  poll(files.data(), files.size(), waitsToConnect ? 100 : -1);
  eventfd_t unused = 0;
  if (files[0].revents != 0) std::ignore = eventfd_read(wake.Number(), &unused);
  lock.lock();
  if (!socket) return;
  if (files[1].revents != 0 && !ReadInto(socket.Number(), lines)) {
    Lose();
    isTried = false;  // once more, at once
  }
  while (const auto line = lines.Next()) talk.Take(*line);
  SendOut();
  SpeakKept();
  changed.notify_all();
}

// On a connection of its own: some synthesizers need a second or two for their list.
void SpeechClient::State::ListVoices() {
  const auto connection = ConnectToSpeechDispatcher();
  if (!connection) return;
  const std::string question = Greeting("voices") + "\r\nLIST SYNTHESIS_VOICES\r\n";
  if (::send(connection->Number(), question.data(), question.size(), MSG_NOSIGNAL) < 0) return;
  const std::string language = UserLanguage();
  const Moment end = std::chrono::steady_clock::now() + kListLimit;
  std::vector<std::string> found;
  SsipLines answers;
  bool isOver = false;
  while (!isOver && std::chrono::steady_clock::now() < end) {
    pollfd file{connection->Number(), POLLIN, 0};
    poll(&file, 1, 200);
    isOver = file.revents != 0 && !ReadInto(connection->Number(), answers);
    while (const auto line = answers.Next()) {
      if (line->code >= kFirstError && line->code < kFirstEvent) return;
      if (line->code != kVoiceListed) continue;
      const auto voice = line->isLast ? std::nullopt : ParseSsipVoice(line->text);
      if (voice && IsForUser(voice->language, language)) found.push_back(voice->name);
      isOver = isOver || line->isLast;
    }
    const std::lock_guard lock(mutex);
    if (isUnwanted) return;
  }
  const std::lock_guard lock(mutex);
  voices = std::move(found);
  changed.notify_all();
}

SpeechClient::SpeechClient() : state_(std::make_shared<State>()) {
  thread_ = std::thread([state = state_] { state->Run(); });
}

// A thread that starts a server may need seconds; it is left behind and takes its state along.
SpeechClient::~SpeechClient() {
  {
    const std::lock_guard lock(state_->mutex);
    state_->isUnwanted = true;
    state_->Wake();
  }
  thread_.detach();
  if (lister_.joinable()) lister_.detach();
}

bool SpeechClient::WaitForServer(std::chrono::milliseconds limit) {
  std::unique_lock lock(state_->mutex);
  state_->changed.wait_for(lock, limit, [this] { return state_->isTried; });
  return state_->socket.Number() >= 0;
}

void SpeechClient::Silence() {
  const std::lock_guard lock(state_->mutex);
  state_->kept.clear();
  state_->talk.Cut();
  if (!state_->socket || state_->isCutOff) return;
  state_->isCutOff = true;
  state_->Send(state_->talk.Command("CANCEL SELF"));
}

void SpeechClient::Say(const std::string& line) {
  const std::lock_guard lock(state_->mutex);
  if (state_->CanSpeak()) return state_->SpeakNow(line);
  state_->kept = line;
  state_->keptAt = std::chrono::steady_clock::now();
  state_->Wake();
}

bool SpeechClient::IsQuiet() {
  const std::lock_guard lock(state_->mutex);
  if (state_->IsHung()) return true;
  return state_->kept.empty() && state_->talk.TextsDue() == 0 && !state_->talk.IsSounding();
}

// A voice that was chosen by its name is only left by connecting anew.
void SpeechClient::Use(const VoiceSettings& settings) {
  const std::lock_guard lock(state_->mutex);
  const VoiceSettings before = state_->talk.Settings();
  if (settings == before) return;
  const bool leavesVoice = settings.name.empty() && !before.name.empty();
  const bool leavesType = settings.type.empty() && !before.type.empty();
  state_->talk.Want(settings);
  if (leavesVoice || leavesType) {
    state_->mustConnectAgain = true;
    state_->Wake();
  } else if (state_->socket) {
    state_->Send(state_->talk.SetUp());
  }
}

VoiceSettings SpeechClient::Settings() {
  const std::lock_guard lock(state_->mutex);
  return state_->talk.Settings();
}

std::vector<std::string> SpeechClient::Voices() {
  const std::lock_guard lock(state_->mutex);
  return state_->voices;
}

void SpeechClient::AskForVoices(std::function<void()> whenKnown) {
  if (lister_.joinable()) return;
  lister_ = std::thread([state = state_, whenKnown = std::move(whenKnown)] {
    state->ListVoices();
    whenKnown();
  });
}

}  // namespace pointalk::linux
