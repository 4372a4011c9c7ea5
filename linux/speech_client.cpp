#include "linux/speech_client.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <optional>
#include <tuple>
#include <utility>

#include "linux/ssip_socket.h"
#include "linux/ssip_voices.h"

namespace pointalk::linux {
namespace {

using Moment = std::chrono::steady_clock::time_point;

constexpr std::size_t kMostUnanswered = 8;        // texts that go out before the server has taken one of them
constexpr std::chrono::seconds kConnectPause{1};  // between two attempts
constexpr std::chrono::seconds kKeptLimit{5};     // after which words are not worth saying any more

}  // namespace

struct SpeechClient::State {
  std::mutex mutex;
  std::condition_variable changed;
  OwnedFile wake{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
  OwnedFile socket;
  bool isTried = false;   // the first attempt to connect is over
  bool isFailed = false;  // the last one has found no server
  bool isUnwanted = false;
  bool mustConnectAgain = false;

  std::string out;   // that the socket has not taken yet
  std::string kept;  // a line that waits until words can go out
  Moment keptAt;
  bool isCutOff = false;  // nothing was said since the last cut
  SsipTalk talk;
  SsipLines lines;

  std::vector<std::string> voices;
  bool isListing = false;
  std::optional<std::size_t> listed;  // the place of the voice that is used once the voices are known

  void Wake() { std::ignore = eventfd_write(wake.Number(), 1); }  // it cannot be full
  // Not on a connection that is given up for another voice: what it has not spoken by then is not waited for.
  bool CanSpeak() const {
    return socket && !mustConnectAgain && out.empty() && talk.TextsDue() < kMostUnanswered;
  }

  void Send(std::string_view bytes);
  void SendOut();
  void SpeakNow(const std::string& line);
  void SpeakKept();
  void Lose();

  void Run();
  bool Connect(std::unique_lock<std::mutex>& lock);
  void Wait(std::unique_lock<std::mutex>& lock);

  void Use(const VoiceSettings& settings);
  void UseName(const std::string& name);
  void AskForVoices(const std::shared_ptr<State>& self);
  bool IsUnwanted();
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
  isFailed = !made;
  mustConnectAgain = false;
  if (made) {
    Lose();
    socket = std::move(*made);
    const Moment now = std::chrono::steady_clock::now();
    Send(talk.Command(SsipGreeting("main"), now));
    Send(talk.AskForEvents(now));
    Send(talk.SetUp(now));
    SpeakKept();
  } else if (socket) {
    SpeakKept();  // with the voice that was to be left
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
  // A connection that was lost within the pause is made again after it, though nobody says anything.
  const bool waitsToConnect = (!socket && (!isTried || !kept.empty())) || mustConnectAgain;
  lock.unlock();
  poll(files.data(), files.size(), waitsToConnect ? 100 : -1);
  eventfd_t unused = 0;
  if (files[0].revents != 0) std::ignore = eventfd_read(wake.Number(), &unused);
  lock.lock();
  if (!socket) return;
  if (files[1].revents != 0 && !ReadSsip(socket.Number(), lines)) {
    Lose();
    isTried = false;  // once more, at once
  }
  const Moment now = std::chrono::steady_clock::now();
  while (const auto line = lines.Next()) talk.Take(*line, now);
  SendOut();
  SpeakKept();
  changed.notify_all();
}

// A voice that was chosen by its name is only left by connecting anew.
void SpeechClient::State::Use(const VoiceSettings& settings) {
  const VoiceSettings before = talk.Settings();
  if (settings == before) return;
  const bool leavesVoice = settings.name.empty() && !before.name.empty();
  const bool leavesType = settings.type.empty() && !before.type.empty();
  talk.Want(settings);
  if (leavesVoice || leavesType) {
    mustConnectAgain = true;
    Wake();
  } else if (socket) {
    Send(talk.SetUp(std::chrono::steady_clock::now()));
  }
}

void SpeechClient::State::UseName(const std::string& name) {
  VoiceSettings settings = talk.Settings();
  settings.type.clear();
  settings.name = name;
  Use(settings);
}

bool SpeechClient::State::IsUnwanted() {
  const std::lock_guard lock(mutex);
  return isUnwanted;
}

// Where it failed before, or there were none, they are asked for again.
void SpeechClient::State::AskForVoices(const std::shared_ptr<State>& self) {
  if (std::exchange(isListing, true)) return;
  std::thread([self] {
    auto found = ListSpeechVoices([self] { return self->IsUnwanted(); });
    const std::lock_guard lock(self->mutex);
    self->isListing = false;
    self->voices = std::move(found);
    const auto place = std::exchange(self->listed, std::nullopt);
    if (place && *place < self->voices.size()) self->UseName(self->voices[*place]);
  }).detach();
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
  state_->Send(state_->talk.Command("CANCEL SELF", std::chrono::steady_clock::now()));
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
  SsipTalk& talk = state_->talk;
  const Moment now = std::chrono::steady_clock::now();
  if (talk.IsHung(now) || (state_->isFailed && !state_->socket)) return true;
  if (!state_->kept.empty() || talk.TextsDue() > 0) return false;
  if (!talk.IsSounding(now)) return true;
  if (state_->socket) state_->Send(talk.AskForSign(now));
  return false;
}

void SpeechClient::Change(const std::function<void(VoiceSettings&)>& change) {
  const std::lock_guard lock(state_->mutex);
  VoiceSettings settings = state_->talk.Settings();
  change(settings);
  state_->Use(settings);
}

VoiceSettings SpeechClient::Settings() {
  const std::lock_guard lock(state_->mutex);
  return state_->talk.Settings();
}

void SpeechClient::UseType(const std::string& type) {
  const std::lock_guard lock(state_->mutex);
  state_->listed.reset();
  VoiceSettings settings = state_->talk.Settings();
  settings.type = type;
  settings.name.clear();
  state_->Use(settings);
}

bool SpeechClient::UseListed(std::size_t place) {
  const std::lock_guard lock(state_->mutex);
  if (state_->voices.empty()) {
    state_->listed = place;
    state_->AskForVoices(state_);
    return true;
  }
  if (place >= state_->voices.size()) return false;
  state_->UseName(state_->voices[place]);
  return true;
}

std::vector<std::string> SpeechClient::Voices() {
  const std::lock_guard lock(state_->mutex);
  return state_->voices;
}

}  // namespace pointalk::linux
