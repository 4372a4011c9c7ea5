// Memory that the program allocates in other processes, which all have addresses of 32 bits.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/types.h"

namespace pointalk::sim {

class ProcessMemory {
 public:
  // A block of zeros; address 0 for process 0, for 0 bytes, and when the process has no memory left.
  RemoteAddress Allocate(ProcessId process, std::size_t bytes);

  void Free(ProcessId process, RemoteAddress block);

  // Copies to and from anywhere within one block. False, with no byte changed, where the range is not in one.
  bool Write(ProcessId process, RemoteAddress to, std::span<const std::byte> from);
  bool Read(ProcessId process, RemoteAddress from, std::span<std::byte> to) const;

  // 32-bit numbers, little-endian.
  std::optional<std::uint32_t> ReadNumber(ProcessId process, RemoteAddress from) const;
  bool WriteNumber(ProcessId process, RemoteAddress to, std::uint32_t number);

  // Blocks that are not freed, in all processes.
  std::size_t BlockCount() const { return blocks_.size(); }

 private:
  using Key = std::pair<ProcessId, RemoteAddress>;

  // The bytes from an address to its block's end; empty outside every block.
  std::span<const std::byte> From(Key key) const;

  std::map<Key, std::vector<std::byte>> blocks_;
  std::map<ProcessId, RemoteAddress> next_;  // where the search for free addresses goes on
};

}  // namespace pointalk::sim
