#include "linux/object_worker.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <array>
#include <cstdlib>
#include <exception>
#include <tuple>
#include <utility>

#include "linux/object_finder.h"

namespace pointalk::linux {
namespace {

constexpr std::chrono::milliseconds kLimit{250};
constexpr std::chrono::milliseconds kHandOver{
    20};  // that an answer may need from the one thread to the other
constexpr std::chrono::seconds kEndLimit{1};
constexpr std::chrono::seconds kReopenPause{1};

}  // namespace

struct ObjectWorker::Shared {
  std::mutex mutex;
  std::condition_variable changed;
  OwnedFile wake{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
  std::optional<ObjectQuestion> question;  // not yet taken
  Moment limit;                            // of the question
  unsigned asked = 0;                      // counts the questions
  unsigned answered = 0;                   // the number of the one that the answer is for
  Answer answer;
  std::set<ProcessId> silent;
  MissingBus missing = MissingBus::kNone;  // of which nobody has been told
  bool isUnwanted = false;
  bool isOver = false;

  void Wake() { std::ignore = eventfd_write(wake.Number(), 1); }  // it cannot be full
};

// What the thread does. The bus may not be there, go away and come back.
class ObjectWorker::Work {
 public:
  explicit Work(std::shared_ptr<Shared> shared) : shared_(std::move(shared)) {}

  void Run() {
    Open();
    while (!IsUnwanted()) {
      AnswerQuestion();
      TakeAnswers();
      Wait();
    }
    finder_.reset();
    bus_.reset();
    switch_.PutBack();
    const std::lock_guard lock(shared_->mutex);
    shared_->isOver = true;
    shared_->changed.notify_all();
  }

 private:
  bool IsUnwanted() {
    const std::lock_guard lock(shared_->mutex);
    return shared_->isUnwanted;
  }

  void Open() {
    const Moment now = std::chrono::steady_clock::now();
    if (now - lastOpening_ < kReopenPause) return;
    lastOpening_ = now;
    finder_.reset();
    switch_.TurnOn();  // each bus that is started anew begins without
    bus_ = Bus::Open(switch_.BusAddress());
    if (switch_.Missing() != MissingBus::kNone && !std::exchange(isMissingTold_, true)) {
      const std::lock_guard lock(shared_->mutex);
      shared_->missing = switch_.Missing();
    }
    if (bus_) finder_ = std::make_unique<ObjectFinder>(*bus_);
  }

  bool HaveBus() {
    if (!bus_ || bus_->IsLost()) Open();
    return bus_ && !bus_->IsLost();
  }

  void AnswerQuestion() {
    std::unique_lock lock(shared_->mutex);
    if (!shared_->question) return;
    const ObjectQuestion question = std::move(*shared_->question);
    const unsigned number = shared_->asked;
    const Moment limit = shared_->limit;
    shared_->question.reset();
    lock.unlock();
    Answer answer;
    try {
      if (HaveBus()) answer.found = finder_->Find(question, limit);
    } catch (const std::exception&) {  // a text too long for our memory
      answer.found.reset();
    }
    answer.isInTime = answer.found || std::chrono::steady_clock::now() < limit;
    const bool isSilent = finder_ && finder_->IsSilent(question.spot.process);
    lock.lock();
    if (isSilent) shared_->silent.insert(question.spot.process);
    shared_->answer = std::move(answer);
    shared_->answered = number;
    shared_->changed.notify_all();
  }

  // Before each wait: of a program that is known to be silent nobody wakes this thread.
  void TakeAnswers() {
    if (bus_ && !bus_->IsLost()) bus_->Process();
    const std::lock_guard lock(shared_->mutex);
    std::erase_if(shared_->silent, [this](ProcessId process) {
      return !finder_ || bus_->IsLost() || !finder_->IsSilent(process);
    });
  }

  void Wait() {
    {
      const std::lock_guard lock(shared_->mutex);
      if (shared_->question || shared_->isUnwanted) return;
    }
    const bool hasBus = bus_ && !bus_->IsLost();
    std::array<pollfd, 2> files{{{shared_->wake.Number(), POLLIN, 0}, {-1, 0, 0}}};
    if (hasBus) files[1] = {bus_->File(), bus_->Events(), 0};
    poll(files.data(), files.size(), -1);
    eventfd_t unused = 0;
    if (files[0].revents != 0) std::ignore = eventfd_read(shared_->wake.Number(), &unused);
  }

  std::shared_ptr<Shared> shared_;
  AccessibilitySwitch switch_;
  std::unique_ptr<Bus> bus_;
  std::unique_ptr<ObjectFinder> finder_;
  Moment lastOpening_{};
  bool isMissingTold_ = false;
};

ObjectWorker::ObjectWorker() : shared_(std::make_shared<Shared>()) {
  thread_ = std::thread([shared = shared_] { Work(shared).Run(); });
}

ObjectWorker::~ObjectWorker() { End(); }

ObjectWorker::Answer ObjectWorker::Ask(const ObjectQuestion& question) {
  std::unique_lock lock(shared_->mutex);
  const bool isBusy = shared_->answered != shared_->asked;  // with a bus that is not there
  if (isBusy || shared_->silent.contains(question.spot.process)) return {};
  shared_->question = question;
  shared_->limit = std::chrono::steady_clock::now() + kLimit;
  const unsigned number = ++shared_->asked;
  shared_->Wake();
  const bool isBack = shared_->changed.wait_until(lock, shared_->limit + kHandOver,
                                                  [&] { return shared_->answered == number; });
  return isBack ? std::exchange(shared_->answer, Answer()) : Answer();
}

bool ObjectWorker::IsSilent(ProcessId process) {
  const std::lock_guard lock(shared_->mutex);
  return shared_->silent.contains(process);
}

MissingBus ObjectWorker::TakeMissingBus() {
  const std::lock_guard lock(shared_->mutex);
  return std::exchange(shared_->missing, MissingBus::kNone);
}

// A thread that does not come to its end in time is left behind.
void ObjectWorker::End() {
  if (!thread_.joinable()) return;
  std::unique_lock lock(shared_->mutex);
  shared_->isUnwanted = true;
  shared_->Wake();
  const bool isOver = shared_->changed.wait_for(lock, kEndLimit, [this] { return shared_->isOver; });
  lock.unlock();
  if (isOver) {
    thread_.join();
  } else {
    thread_.detach();
  }
}

}  // namespace pointalk::linux
