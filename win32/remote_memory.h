// Memory in other processes.
#pragma once

#include "platform/remote_memory.h"
#include "win32/handles.h"

namespace pointalk::win32 {

class WinRemoteMemory final : public RemoteMemory {
 public:
  int PointerBytes(ProcessId process) override;
  RemoteAddress Allocate(ProcessId process, std::size_t bytes) override;
  bool Write(ProcessId process, RemoteAddress to, std::span<const std::byte> from) override;
  bool Read(ProcessId process, RemoteAddress from, std::span<std::byte> to) override;
  void Free(ProcessId process, RemoteAddress block) override;

 private:
  // The open process; null for one that is gone or will not be opened.
  HANDLE Open(ProcessId process);

  // Whether a call succeeded; after one that did not, a process that has ended is let go.
  bool Noted(bool success);

  // A reading takes several of these calls, so the process asked last stays open until another one is asked.
  OwnedHandle handle_;
  ProcessId process_ = 0;
  int pointerBytes_ = 4;  // of that process
};

}  // namespace pointalk::win32
