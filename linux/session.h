// The user's session: what it is, and that it ends.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace pointalk::linux {

// A session in which no program is told where the pointer is.
bool IsWaylandSession();

// The signals by which a session and its user end a program, as events. Made before any other thread, so that
// all of them leave the signals alone.
class EndSignals {
 public:
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  // Calls back on the form's thread.
  void Serve(std::function<void()> onEnd);

  // Waits for one of them, that long at most; false when none came.
  bool WaitFor(std::chrono::milliseconds limit);

 private:
  struct Signals;
  std::unique_ptr<Signals> signals_;
};

}  // namespace pointalk::linux
