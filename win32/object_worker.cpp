#include "win32/object_worker.h"

#include <exception>
#include <tuple>
#include <utility>

#include "win32/com.h"
#include "win32/counter.h"
#include "win32/handles.h"
#include "win32/locked.h"

namespace pointalk::win32 {

struct ObjectWorker::Shared {
  SRWLOCK lock = SRWLOCK_INIT;
  CONDITION_VARIABLE asked = CONDITION_VARIABLE_INIT;
  CONDITION_VARIABLE answered = CONDITION_VARIABLE_INIT;
  std::optional<Point> question;  // not yet answered
  ObjectAnswer answer;            // what there is of it, while the question is under way
  OwnedHandle event;              // once somebody waits for it
  bool unwanted = false;

  void Serve();
  std::optional<Point> NextQuestion();
};

// No value when the thread is to end.
std::optional<Point> ObjectWorker::Shared::NextQuestion() {
  const Locked locked(lock);
  while (!question && !unwanted) SleepConditionVariableSRW(&asked, &lock, INFINITE, 0);
  return unwanted ? std::nullopt : question;
}

void ObjectWorker::Shared::Serve() {
  const ComThread com(COINIT_MULTITHREADED);
  AutomationQuestion automation;
  const auto early = [this](const std::optional<AccessibleFacts>& facts) {
    const Locked locked(lock);
    answer.facts = facts;
  };
  while (const auto place = NextQuestion()) {
    ObjectAnswer complete;
    try {
      complete = AskObjectAt(*place, automation, early);
    } catch (const std::exception&) {  // a text too long for our memory
      complete = {};
    }
    const Locked locked(lock);
    answer = std::move(complete);
    question.reset();
    if (event) SetEvent(event.get());
    WakeConditionVariable(&answered);
  }
}

std::unique_ptr<ObjectWorker> ObjectWorker::Start() {
  const auto shared = std::make_shared<Shared>();
  auto kept = std::make_unique<std::shared_ptr<Shared>>(shared);
  const OwnedHandle thread(CreateThread(nullptr, 0, &ThreadMain, kept.get(), 0, nullptr));
  if (!thread) return nullptr;
  std::ignore = kept.release();  // the thread takes it
  return std::unique_ptr<ObjectWorker>(new ObjectWorker(shared));
}

DWORD WINAPI ObjectWorker::ThreadMain(void* shared) {
  const std::unique_ptr<std::shared_ptr<Shared>> kept(static_cast<std::shared_ptr<Shared>*>(shared));
  (*kept)->Serve();
  return 0;
}

ObjectWorker::~ObjectWorker() {
  const Locked locked(shared_->lock);
  shared_->unwanted = true;
  WakeConditionVariable(&shared_->asked);
}

void ObjectWorker::Ask(Point screen) {
  const Locked locked(shared_->lock);
  shared_->question = screen;
  if (shared_->event) ResetEvent(shared_->event.get());
  WakeConditionVariable(&shared_->asked);
}

bool ObjectWorker::AnswersWithin(DWORD milliseconds) {
  const Deadline deadline(milliseconds);
  const Locked locked(shared_->lock);
  while (shared_->question) {
    const DWORD left = deadline.Left();
    if (left == 0) return false;
    SleepConditionVariableSRW(&shared_->answered, &shared_->lock, left, 0);
  }
  return true;
}

HANDLE ObjectWorker::AnswerEvent() {
  const Locked locked(shared_->lock);
  if (!shared_->event) shared_->event.reset(CreateEventW(nullptr, TRUE, !shared_->question, nullptr));
  return shared_->event.get();
}

ObjectAnswer ObjectWorker::TakeAnswer() {
  const Locked locked(shared_->lock);
  return std::exchange(shared_->answer, {});
}

}  // namespace pointalk::win32
