#include "sim/process_memory.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace pointalk::sim {
namespace {

constexpr RemoteAddress kFirstAddress = 0x60000000;  // far from every point that is packed into a number
constexpr RemoteAddress kEnd = 0x80000000;
constexpr RemoteAddress kGranularity = 0x1000;

}  // namespace

RemoteAddress ProcessMemory::Allocate(ProcessId process, std::size_t bytes) {
  if (process == 0 || bytes == 0 || bytes > kEnd - kFirstAddress) return 0;
  RemoteAddress& next = next_.try_emplace(process, kFirstAddress).first->second;
  // From where the last search ended to the end of the addresses, then once more from their beginning.
  for (int rounds = 0; rounds < 2; ++rounds, next = kFirstAddress) {
    auto block = blocks_.lower_bound({process, next});
    while (block != blocks_.end() && block->first.first == process && block->first.second < next + bytes) {
      const RemoteAddress end = block->first.second + block->second.size();
      next = (end + kGranularity - 1) / kGranularity * kGranularity;
      ++block;
    }
    if (next + bytes > kEnd) continue;
    const RemoteAddress address = next;
    blocks_.emplace(Key{process, address}, std::vector<std::byte>(bytes));
    next += (bytes + kGranularity - 1) / kGranularity * kGranularity;
    return address;
  }
  return 0;
}

void ProcessMemory::Free(ProcessId process, RemoteAddress block) { blocks_.erase({process, block}); }

std::span<const std::byte> ProcessMemory::From(Key key) const {
  auto block = blocks_.upper_bound(key);
  if (block == blocks_.begin()) return {};
  --block;
  const auto& [start, bytes] = *block;
  if (start.first != key.first || key.second - start.second >= bytes.size()) return {};
  return std::span(bytes).subspan(key.second - start.second);
}

bool ProcessMemory::Write(ProcessId process, RemoteAddress to, std::span<const std::byte> from) {
  const std::span<const std::byte> rest = From({process, to});
  if (rest.empty() || rest.size() < from.size()) return false;
  auto& block = std::prev(blocks_.upper_bound({process, to}))->second;
  std::copy(from.begin(), from.end(), block.end() - static_cast<std::ptrdiff_t>(rest.size()));
  return true;
}

bool ProcessMemory::Read(ProcessId process, RemoteAddress from, std::span<std::byte> to) const {
  const std::span<const std::byte> bytes = From({process, from});
  if (bytes.empty() || bytes.size() < to.size()) return false;
  std::copy_n(bytes.begin(), to.size(), to.begin());
  return true;
}

std::optional<std::uint32_t> ProcessMemory::ReadNumber(ProcessId process, RemoteAddress from) const {
  std::array<std::byte, 4> bytes{};
  if (!Read(process, from, bytes)) return std::nullopt;
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i)
    number |= std::to_integer<std::uint32_t>(bytes[i]) << (8 * i);
  return number;
}

bool ProcessMemory::WriteNumber(ProcessId process, RemoteAddress to, std::uint32_t number) {
  std::array<std::byte, 4> bytes{};
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::byte>(number >> (8 * i));
  return Write(process, to, bytes);
}

}  // namespace pointalk::sim
