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
  RemoteBlock(RemoteMemory& memory, ProcessId process, std::size_t bytes)
      : memory_(memory), process_(process), block_(process == 0 ? 0 : memory_.Allocate(process, bytes)) {}
  ~RemoteBlock() {
    if (block_ != 0) memory_.Free(process_, block_);
  }
  RemoteBlock(const RemoteBlock&) = delete;
  RemoteBlock& operator=(const RemoteBlock&) = delete;

  // 0 when empty; no message may carry it then, for the other program would use it.
  RemoteAddress Address() const { return block_; }

  // False, and no byte copied, when empty or when the process is gone.
  [[nodiscard]] bool Write(std::span<const std::byte> bytes) {
    return block_ != 0 && memory_.Write(process_, block_, bytes);
  }
  [[nodiscard]] bool Read(std::span<std::byte> bytes) {
    return block_ != 0 && memory_.Read(process_, block_, bytes);
  }

  // Leaves the block in the other process for good.
  void Abandon() { block_ = 0; }

 private:
  RemoteMemory& memory_;
  ProcessId process_;
  RemoteAddress block_;
};

}  // namespace pointalk
