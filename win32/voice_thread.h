// The thread of the speech engines. A call to them may last as long as a text is spoken, or for ever, and
// handles no messages; so it is made there, and the form stays within other programs' reach.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include "win32/engine_objects.h"
#include "win32/handles.h"

namespace pointalk::win32 {

// Makes the calls that one other thread, the form's, gives it, one after the other in the order in which they
// are given. It is an apartment with a message loop of its own, since the engines' objects need both.
class VoiceThread {
 public:
  // Returns once the new thread has COM. Where the system gives no thread, every call fails.
  VoiceThread();

  // Makes the calls that wait, and releases the engines where they were created.
  ~VoiceThread();
  VoiceThread(const VoiceThread&) = delete;
  VoiceThread& operator=(const VoiceThread&) = delete;

  // Waits for the answer and handles sent messages meanwhile. No value when there is none within so many
  // milliseconds, and when the call threw; it is still made.
  template <typename Question>
  std::optional<std::invoke_result_t<Question, Engines&>> Ask(Question question, DWORD limit = INFINITE) {
    const auto answer = std::make_shared<std::optional<std::invoke_result_t<Question, Engines&>>>();
    auto keep = [answer, asked = std::move(question)](Engines& engines) {
      *answer = asked(engines);
      return true;
    };
    const bool made = Make(std::move(keep), limit);
    return made ? std::move(*answer) : std::nullopt;
  }

  // Gives whether it worked.
  using Call = std::function<bool(Engines&)>;

  // For a call whose answer nobody needs. An engine that is idle takes it in a moment, for which it is
  // waited, so that what the caller plays or closes next comes after it; one that is at work is not waited
  // for. A call that cuts off also makes needless what waits before it, which is dropped when it is very
  // much. False when it is known by then that the call did not work.
  bool Hand(Call call, bool cutsOff);

  // Whether there are calls that are not over.
  bool IsBehind() const;

  // Whether the other thread is in Ask.
  bool IsWaitedFor() const { return waits_ > 0; }

 private:
  struct Order;
  using Orders = std::deque<std::shared_ptr<Order>>;

  static DWORD WINAPI ThreadMain(void* voice);
  void Serve();
  std::shared_ptr<Order> NextOrder();
  bool IsUnwanted();
  void CarryOut(Order& order, Engines& engines);

  bool Make(Call call, DWORD limit);
  void Give(std::shared_ptr<Order> order);
  void AwaitTaken(const Order& order);

  OwnedHandle wake_;   // set for each new order
  OwnedHandle ready_;  // set once the thread has COM
  int waits_ = 0;      // for answers, one within the other; the other thread's own

  mutable SRWLOCK lock_ = SRWLOCK_INIT;  // on what follows
  CONDITION_VARIABLE moved_ = CONDITION_VARIABLE_INIT;
  Orders orders_;          // not yet begun
  bool atWork_ = false;    // on an order that it has taken from there
  bool unwanted_ = false;  // the thread is to end

  OwnedHandle thread_;
};

}  // namespace pointalk::win32
