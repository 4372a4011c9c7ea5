// Which threads of other programs are worth asking. A thread that ran over a limit is left alone until it
// answers again, so that a hung window costs one limit and not one a tick.
#pragma once

#include <windows.h>

#include <map>
#include <memory>

#include "win32/handles.h"

namespace pointalk::win32 {

// The thread of the window that the pointer is over now; 0 over none.
DWORD ThreadUnderPointer();

// A question that nobody waits for, under way to a thread that ran over a limit.
class Probe {
 public:
  // The number counts the probes of one Patience.
  Probe(DWORD thread, unsigned number);

  // The thread has looked at its messages since, or has ended.
  bool IsOver();

  unsigned Number() const { return number_; }

 private:
  friend class Patience;

  // Sends the question, which the window's thread answers when it next looks at its messages; the answer
  // comes in with ours. False when the window takes none.
  static bool Send(const std::shared_ptr<Probe>& probe, HWND window);
  static void CALLBACK OnAnswer(HWND window, UINT message, ULONG_PTR probe, LRESULT result);

  // The window that was asked is there still and can answer.
  bool IsUnderWay() const;

  DWORD thread_;
  OwnedHandle
      handle_;  // of the thread, whose number is not given to another one meanwhile; null when refused
  HWND window_ = nullptr;
  unsigned number_;
  bool over_ = false;
};

class Patience {
 public:
  // No thread is known not to answer.
  bool AllAnswer() const { return probes_.empty(); }

  // False while the window's thread is known not to answer. Waits for nobody.
  bool MayAsk(HWND window);

  // The window's thread ran over a limit, or is not worth its answers. The window may have gone meanwhile if
  // it is the one that MayAsk was asked for last.
  void RanOver(HWND window);

  // What is under way to the window's thread; null while that is not known not to answer. Says the same of a
  // window that has gone as RanOver does.
  std::shared_ptr<Probe> ProbeOf(HWND window) const;

  // How many probes there have been. What was not there yet when a probe was sent is in no message before it.
  unsigned ProbesSent() const { return probesSent_; }

  // Lets go of the threads that have answered, have ended or have no window any more, and sends what is under
  // way to a window that has gone to another one of its thread.
  void LookAfterAll();

 private:
  DWORD ThreadOf(HWND window) const;

  std::map<DWORD, std::shared_ptr<Probe>> probes_;  // by thread
  unsigned probesSent_ = 0;
  ULONGLONG lastLook_ = 0;  // after all, by the system's clock, in milliseconds

  HWND asked_ = nullptr;  // the window that was asked for last, and its thread
  DWORD askedThread_ = 0;
};

}  // namespace pointalk::win32
