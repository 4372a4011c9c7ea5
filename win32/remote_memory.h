// Memory in other processes.
#pragma once

#include <map>
#include <memory>

#include "platform/remote_memory.h"
#include "win32/lent_blocks.h"
#include "win32/unresponsive_threads.h"

namespace pointalk::win32 {

class WinRemoteMemory final : public RemoteMemory {
 public:
  // The form's window gives the timer with which lent blocks are looked after.
  WinRemoteMemory(UnresponsiveThreads& unresponsiveThreads, HWND form)
      : unresponsiveThreads_(unresponsiveThreads), lent_(unresponsiveThreads, form) {}

  int PointerBytes(ProcessId process) override;
  RemoteAddress Allocate(ProcessId process, std::size_t bytes) override;
  bool Write(ProcessId process, RemoteAddress to, std::span<const std::byte> from) override;
  bool Read(ProcessId process, RemoteAddress from, std::span<std::byte> to) override;
  void Free(ProcessId process, RemoteAddress block) override;
  void FreeOnceAnswered(ProcessId process, RemoteAddress block, WindowHandle window) override;

 private:
  // The open process; null for one that is gone or will not be opened.
  HANDLE Open(ProcessId process);

  // Gives back whether a call succeeded; after a failure the handle of a process that has ended is closed.
  bool Checked(bool success);

  // A reading takes several of these calls, so the process asked last stays open until another one is asked.
  std::shared_ptr<void> handle_;
  ProcessId process_ = 0;
  int pointerBytes_ = 4;  // of that process

  // The blocks of that process that are not given back, with the number of probes that had been sent when
  // each was had.
  std::map<RemoteAddress, unsigned> out_;

  UnresponsiveThreads& unresponsiveThreads_;
  LentBlocks lent_;
};

}  // namespace pointalk::win32
