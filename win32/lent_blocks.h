// Blocks in other processes that a message which was not answered may still be at work with.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "win32/unresponsive_threads.h"

namespace pointalk::win32 {

// Looked after by a timer of the form's window, which runs only while there are any. Those that are left when
// the program ends stay for as long as their processes.
class LentBlocks {
 public:
  LentBlocks(UnresponsiveThreads& unresponsiveThreads, HWND form)
      : unresponsiveThreads_(unresponsiveThreads), form_(form) {}
  ~LentBlocks();
  LentBlocks(const LentBlocks&) = delete;
  LentBlocks& operator=(const LentBlocks&) = delete;

  // With those of another message there might wait more in that process than may.
  bool IsFull(DWORD process) const;

  // The block is given back some seconds after the probe is over. Where there is no memory to remember it, it
  // stays. The handle may allocate and free in the process, and be waited for.
  void Take(std::shared_ptr<void> process, void* block, std::shared_ptr<Probe> probe) noexcept;

 private:
  struct Lent {
    std::shared_ptr<void> process;
    void* block;
    std::shared_ptr<Probe> probe;
    ULONGLONG over;  // when the probe was first seen to be, by the system's clock; 0 while it is not
  };

  static void CALLBACK OnTimer(HWND form, UINT message, UINT_PTR blocks, DWORD time);
  static bool IsDone(Lent& lent);
  void Look();

  UnresponsiveThreads& unresponsiveThreads_;
  HWND form_;
  std::vector<Lent> lent_;
};

}  // namespace pointalk::win32
