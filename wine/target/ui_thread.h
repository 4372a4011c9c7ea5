// A thread with a message loop: the home of some of the target's windows, which hang together.
#pragma once

#include <windows.h>

#include <functional>
#include <future>
#include <semaphore>
#include <string>
#include <thread>

namespace pointalk::target {

class UiThread {
 public:
  // Returns once the thread takes tasks. An unaware one knows nothing of the screen's scale.
  explicit UiThread(bool unaware);
  // The loop ends with the process.
  UiThread(const UiThread&) = delete;
  UiThread& operator=(const UiThread&) = delete;

  DWORD Id() const { return id_; }

  // Runs the task on the thread and gives its reply; what it throws is thrown here. Throws CommandError when
  // the thread has not got round to it within five seconds; it may still do so later.
  std::string Run(std::function<std::string()> task);

  // Makes the thread hang, which it does when this returns. Throws CommandError when it hangs already.
  void Hang();

  // Ends that. Throws CommandError when it does not hang.
  void Wake();

  // How many messages from other threads are being answered right now, one inside the other.
  int& AnswerDepth() { return answerDepth_; }

 private:
  using Task = std::packaged_task<std::string()>;

  void Loop(bool unaware, std::promise<HWND>& ready);
  std::future<std::string> Post(std::function<std::string()> task);

  DWORD id_ = 0;
  HWND inbox_ = nullptr;  // takes the tasks, also while a menu is open
  int answerDepth_ = 0;
  bool hangs_ = false;  // known to those who give commands
  std::binary_semaphore mayGoOn_{0};
  std::thread thread_;
};

}  // namespace pointalk::target
