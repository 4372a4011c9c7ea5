// Which threads of other programs are worth asking. A thread that ran over a limit is left alone until it
// answers again, so that a hung window costs one limit and not one a tick.
#pragma once

#include <windows.h>

#include <map>
#include <memory>

namespace pointalk::win32 {

// The thread of the window that the pointer is over now; 0 over none.
DWORD ThreadUnderPointer();

class Patience {
 public:
  // No thread is known not to answer.
  bool AllAnswer() const { return probes_.empty(); }

  // False while the window's thread is known not to answer. Asks nobody.
  bool MayAsk(HWND window);

  // The window's thread ran over a limit, or is not worth its answers.
  void RanOver(HWND window);

 private:
  // A question that nobody waits for, under way to a thread that does not answer.
  struct Probe {
    HWND window = nullptr;
    bool answered = false;
  };

  static void CALLBACK OnAnswer(HWND window, UINT message, ULONG_PTR probe, LRESULT result);

  std::map<DWORD, std::shared_ptr<Probe>> probes_;  // by thread
};

}  // namespace pointalk::win32
