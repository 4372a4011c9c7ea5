// Memory in the simulated processes.
#pragma once

#include "platform/remote_memory.h"
#include "sim/machine.h"
#include "sim/process_memory.h"

namespace pointalk::sim {

class SimRemoteMemory final : public RemoteMemory {
 public:
  explicit SimRemoteMemory(const Machine& machine) : machine_(machine) {}

  int PointerBytes(ProcessId) override { return 4; }
  RemoteAddress Allocate(ProcessId process, std::size_t bytes) override {
    return memory_.Allocate(process, bytes);
  }
  bool Write(ProcessId process, RemoteAddress to, std::span<const std::byte> from) override {
    return memory_.Write(process, to, from);
  }
  bool Read(ProcessId process, RemoteAddress from, std::span<std::byte> to) override {
    return memory_.Read(process, from, to);
  }
  void Free(ProcessId process, RemoteAddress block) override;
  // A window that hangs here does nothing with what it was sent, not later either.
  void FreeOnceAnswered(ProcessId process, RemoteAddress block, WindowHandle) override {
    Free(process, block);
  }

  // As the processes themselves see it.
  ProcessMemory& Memory() { return memory_; }

 private:
  const Machine& machine_;
  ProcessMemory memory_;
};

}  // namespace pointalk::sim
