// Memory in other processes, which no control here asks for: there is none.
#pragma once

#include "platform/remote_memory.h"

namespace pointalk::linux {

class LinuxRemoteMemory final : public RemoteMemory {
 public:
  int PointerBytes(ProcessId) override { return 4; }
  RemoteAddress Allocate(ProcessId, std::size_t) override { return 0; }
  bool Write(ProcessId, RemoteAddress, std::span<const std::byte>) override { return false; }
  bool Read(ProcessId, RemoteAddress, std::span<std::byte>) override { return false; }
  void Free(ProcessId, RemoteAddress) override {}
  void FreeOnceAnswered(ProcessId, RemoteAddress, WindowHandle) override {}
};

}  // namespace pointalk::linux
