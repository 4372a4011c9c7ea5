// A block of memory in another process that is given back when its owner goes. Where a control was given its
// address and has not answered, that is left to the platform: the control may still be at work with it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>

#include "platform/control_messages.h"
#include "platform/remote_memory.h"

namespace pointalk {

class RemoteBlock {
 public:
  // Empty where the process is 0 or gives no memory.
  RemoteBlock(RemoteMemory& memory, ProcessId process, std::size_t bytes)
      : memory_(memory), process_(process), block_(process == 0 ? 0 : memory_.Allocate(process, bytes)) {}
  ~RemoteBlock() {
    if (block_ == 0) return;
    if (borrower_ == 0) {
      memory_.Free(process_, block_);
    } else {
      memory_.FreeOnceAnswered(process_, block_, borrower_);
    }
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

  // Sends a message with the block's address. No value when it is not answered; from then on the block must
  // not be written to.
  std::optional<std::int32_t> Ask(ControlMessages& messages, WindowHandle window, std::uint32_t message) {
    Lend(window);
    const std::optional<std::int32_t> answer = messages.Send(window, message, 0, block_);
    if (answer) TakeBack();
    return answer;
  }

  // The same by hand, for a block whose address stands in another one that is sent.
  void Lend(WindowHandle window) { borrower_ = window; }
  void TakeBack() { borrower_ = 0; }

  // A window was asked and has not answered.
  bool IsLent() const { return borrower_ != 0; }

  // Leaves the block in the other process for good.
  void Abandon() { block_ = 0; }

 private:
  RemoteMemory& memory_;
  ProcessId process_;
  RemoteAddress block_;
  WindowHandle borrower_ = 0;  // the window that may be at work with the block; 0 for none
};

}  // namespace pointalk
