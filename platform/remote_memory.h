// Seam: memory in other processes, for controls that want the address of a record of their own process.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/types.h"

namespace pointalk {

class RemoteMemory {
 public:
  virtual ~RemoteMemory() = default;

  // Bytes of a pointer in that process, 4 or 8; it decides the layout of records put there. 4 when unknown.
  virtual int PointerBytes(ProcessId process) = 0;

  // A block of zeros in that process; 0 when it cannot be had.
  virtual RemoteAddress Allocate(ProcessId process, std::size_t bytes) = 0;

  // Copy to and from a block. False, and no byte copied, for address 0 and when the process is gone.
  [[nodiscard]] virtual bool Write(ProcessId process, RemoteAddress to, std::span<const std::byte> from) = 0;
  [[nodiscard]] virtual bool Read(ProcessId process, RemoteAddress from, std::span<std::byte> to) = 0;

  // Gives a block back; address 0 is ignored.
  virtual void Free(ProcessId process, RemoteAddress block) = 0;

  // The same for a block that was sent to a window with a message that was not answered, which may still be
  // at work with it. The block is given back some seconds after the window's thread has answered another
  // message; where it never does, the block stays for as long as its process. At once where no message is
  // still out.
  virtual void FreeOnceAnswered(ProcessId process, RemoteAddress block, WindowHandle window) = 0;
};

}  // namespace pointalk
