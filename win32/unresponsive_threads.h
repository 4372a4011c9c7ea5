// The threads of other programs that are unresponsive. One that timed out is not asked again until it
// answers, so that a hung window costs one limit and not one a tick.
#pragma once

#include <windows.h>

#include <map>
#include <memory>

#include "win32/handles.h"

namespace pointalk::win32 {

// The thread of the window that the pointer is over now; 0 over none.
DWORD ThreadUnderPointer();

// Whether a message that failed with this error of the system's shows that the window's thread is
// unresponsive. It does not where the window has gone or must not be sent messages.
bool ShowsUnresponsive(DWORD error);

// A message that is sent, without waiting, to a thread that timed out: once it is answered the thread
// responds again.
class Probe {
 public:
  // The number counts the probes of its UnresponsiveThreads.
  Probe(DWORD thread, unsigned number);

  // The thread has looked at its messages since, or has ended.
  bool IsOver();

  unsigned Number() const { return number_; }

 private:
  friend class UnresponsiveThreads;

  // Sends the question, which the window's thread answers when it next looks at its messages; the answer
  // comes in with ours. False when the window takes none.
  static bool Send(const std::shared_ptr<Probe>& probe, HWND window);
  static void CALLBACK OnAnswer(HWND window, UINT message, ULONG_PTR probe, LRESULT result);

  // The window that was asked is there still and can answer.
  bool IsPending() const;

  DWORD thread_;
  // Of the thread, so that its number is given to no other one meanwhile; null when refused.
  OwnedHandle handle_;
  HWND window_ = nullptr;
  unsigned number_;
  bool over_ = false;
};

class UnresponsiveThreads {
 public:
  // No thread is known to be unresponsive.
  bool AllAnswer() const { return probes_.empty(); }

  // False while the window's thread is known to be unresponsive. Never waits.
  bool MayAsk(HWND window);

  // The window's thread timed out, or takes too long for what it answers. The window may have gone meanwhile
  // if it is the one that MayAsk was asked for last.
  void TimedOut(HWND window);

  // The probe of the window's thread; null while that is not known to be unresponsive. The window may have
  // gone as TimedOut says.
  std::shared_ptr<Probe> ProbeOf(HWND window) const;

  // How many probes there have been. What was not there yet when a probe was sent is in no message before it.
  unsigned ProbesSent() const { return probesSent_; }

  // Forgets the threads that have answered, have ended or have no window any more. Where a probe's window has
  // gone, the probe is sent to another window of its thread.
  void Refresh();

 private:
  DWORD ThreadOf(HWND window) const;

  std::map<DWORD, std::shared_ptr<Probe>> probes_;  // by thread
  unsigned probesSent_ = 0;
  ULONGLONG lastLook_ = 0;  // after all, by the system's clock, in milliseconds

  HWND asked_ = nullptr;  // the window that was asked for last, and its thread
  DWORD askedThread_ = 0;
};

}  // namespace pointalk::win32
