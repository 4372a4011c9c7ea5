// Watches the mouse buttons and the keys of the whole desktop.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <thread>

#include "input/double_clicks.h"
#include "linux/owned.h"

namespace pointalk::linux {

class XDisplay;

// On a thread and a connection of its own: a press is noticed at once, whatever the form is doing, and the
// mouse waits for nobody.
class InputWatcher {
 public:
  // The numbers of mouse messages are handed to the receiver on the watching thread.
  using Receiver = std::function<void(std::int32_t message)>;

  explicit InputWatcher(Receiver receiver);
  ~InputWatcher();
  InputWatcher(const InputWatcher&) = delete;
  InputWatcher& operator=(const InputWatcher&) = delete;

  // Whether mouse messages are handed on from now. False where the server tells nobody of its buttons.
  bool Report(bool on);

  // True when the key has gone down since it was last asked for here.
  bool TakePress(int virtualKey);

 private:
  bool Select(XDisplay& display);
  void HandleEvents(XDisplay& display);
  void NoteButton(XDisplay& display, int button, bool down, std::uint32_t time);
  void NoteKey(XDisplay& display, int keyCode);

  Receiver receiver_;
  OwnedFile wake_;  // written to when the thread is to end
  std::atomic<bool> working_ = false;
  std::atomic<bool> reports_ = false;
  std::atomic<bool> leftPressed_ = false;
  std::atomic<bool> shiftPressed_ = false;
  std::atomic<bool> controlPressed_ = false;
  std::atomic<bool> altPressed_ = false;

  // Of the thread alone.
  DoubleClicks clicks_;
  int extension_ = 0;

  std::thread thread_;
};

}  // namespace pointalk::linux
