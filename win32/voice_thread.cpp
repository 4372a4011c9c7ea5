#include "win32/voice_thread.h"

#include <exception>

#include "win32/com.h"
#include "win32/counter.h"
#include "win32/locked.h"
#include "win32/sent_messages.h"

namespace pointalk::win32 {
namespace {

// A healthy engine takes a text in less than one. A thread that has nothing to do begins at once, but a busy
// machine may let it wait.
constexpr DWORD kTakenWithin = 100;  // milliseconds
constexpr DWORD kTakesWithin = 20;   // milliseconds

constexpr std::size_t kMostCallsWaiting = 64;  // calls that nobody waits for

void HandleMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace

struct VoiceThread::Order {
  enum class State { kWaits, kIsMade, kIsOver };

  explicit Order(Call wanted) : call(std::move(wanted)) {}

  Call call;
  OwnedHandle over;  // an event, where somebody waits for the answer
  State state = State::kWaits;
  bool worked = false;
};

VoiceThread::VoiceThread()
    : wake_(CreateEventW(nullptr, FALSE, FALSE, nullptr)),
      ready_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
  if (!wake_ || !ready_) return;
  thread_.reset(CreateThread(nullptr, 0, &ThreadMain, this, 0, nullptr));
  if (thread_) AwaitServingSent(ready_.get(), INFINITE);
}

VoiceThread::~VoiceThread() {
  if (!thread_) return;
  {
    const Locked locked(lock_);
    unwanted_ = true;
  }
  SetEvent(wake_.get());
  AwaitServingSent(thread_.get(), INFINITE);
}

DWORD WINAPI VoiceThread::ThreadMain(void* voice) {
  static_cast<VoiceThread*>(voice)->Serve();
  return 0;
}

void VoiceThread::Serve() {
  const ComThread com(COINIT_APARTMENTTHREADED);
  Engines engines;
  SetEvent(ready_.get());
  for (;;) {
    HandleMessages();
    if (const auto order = NextOrder()) {
      CarryOut(*order, engines);
    } else if (IsUnwanted()) {
      return;
    } else {
      const HANDLE wake = wake_.get();
      MsgWaitForMultipleObjectsEx(1, &wake, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
  }
}

std::shared_ptr<VoiceThread::Order> VoiceThread::NextOrder() {
  const Locked locked(lock_);
  if (orders_.empty()) return nullptr;
  auto order = std::move(orders_.front());
  orders_.pop_front();
  atWork_ = true;
  order->state = Order::State::kIsMade;
  WakeConditionVariable(&moved_);
  return order;
}

bool VoiceThread::IsUnwanted() {
  const Locked locked(lock_);
  return unwanted_ && orders_.empty();
}

void VoiceThread::CarryOut(Order& order, Engines& engines) {
  bool worked = false;
  try {
    worked = order.call(engines);
  } catch (const std::exception&) {  // an engine that fails is not heard
  }
  const Locked locked(lock_);
  atWork_ = false;
  order.worked = worked;
  order.state = Order::State::kIsOver;
  if (order.over) SetEvent(order.over.get());
  WakeConditionVariable(&moved_);
}

// False when the call was not made in time, or threw.
bool VoiceThread::Make(Call call, DWORD limit) {
  const auto order = std::make_shared<Order>(std::move(call));
  order->over.reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  if (!thread_ || !order->over) return false;
  {
    const Locked locked(lock_);
    Give(order);
  }
  ++waits_;
  const bool answered = AwaitServingSent(order->over.get(), limit);
  --waits_;
  return answered && order->worked;
}

bool VoiceThread::Hand(Call call, bool cutsOff) {
  const auto order = std::make_shared<Order>(std::move(call));
  if (!thread_) return false;
  const Locked locked(lock_);
  const bool idle = !atWork_ && orders_.empty();
  if (cutsOff && orders_.size() >= kMostCallsWaiting)
    std::erase_if(orders_, [](const std::shared_ptr<Order>& waiting) { return !waiting->over; });
  Give(order);
  if (idle) AwaitTaken(*order);
  return order->state != Order::State::kIsOver || order->worked;
}

bool VoiceThread::IsBehind() const {
  const Locked locked(lock_);
  return atWork_ || !orders_.empty();
}

void VoiceThread::Give(std::shared_ptr<Order> order) {
  orders_.push_back(std::move(order));
  SetEvent(wake_.get());
}

// Lets go of the lock while it waits.
void VoiceThread::AwaitTaken(const Order& order) {
  using State = Order::State;
  const auto leaves = [&](State state, DWORD limit) {
    const Deadline deadline(limit);
    for (DWORD left = limit; order.state == state && left > 0; left = deadline.Left())
      SleepConditionVariableSRW(&moved_, &lock_, left, 0);
  };
  leaves(State::kWaits, kTakenWithin);
  leaves(State::kIsMade, kTakesWithin);
}

}  // namespace pointalk::win32
