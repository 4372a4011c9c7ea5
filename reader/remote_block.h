// A block of memory in another process that is given back when its owner goes.
#pragma once

#include <cstddef>
#include <span>
#include <utility>

#include "platform/remote_memory.h"

namespace pointalk {

class RemoteBlock {
 public:
  // Empty where the process is 0 or gives no memory.
  RemoteBlock(RemoteMemory& theMemory, ProcessId theProcess, std::size_t bytes)
      : memory(theMemory), process(theProcess), block(process == 0 ? 0 : memory.Allocate(process, bytes)) {}
  ~RemoteBlock() {
    if (block != 0) memory.Free(process, block);
  }
  RemoteBlock(const RemoteBlock&) = delete;
  RemoteBlock& operator=(const RemoteBlock&) = delete;

  // 0 when empty; no message may carry it then, for the other program would use it.
  RemoteAddress Address() const { return block; }

  // False, with nothing changed, when empty or when the process is gone.
  [[nodiscard]] bool Write(std::span<const std::byte> bytes) {
    return block && memory.Write(process, block, bytes);
  }
  [[nodiscard]] bool Read(std::span<std::byte> bytes) { return block && memory.Read(process, block, bytes); }

  // Leaves the block in the other process for good.
  void Abandon() { block = 0; }

 private:
  RemoteMemory& memory;
  ProcessId process;
  RemoteAddress block;
};

}  // namespace pointalk
