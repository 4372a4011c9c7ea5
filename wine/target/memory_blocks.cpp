#include "wine/target/memory_blocks.h"

#include <windows.h>

#include <array>
#include <cstdint>
#include <vector>

#include "wine/target/text.h"

namespace pointalk::target {
namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kShownBytes = 40;

std::wstring Hexadecimal(const void* bytes, std::size_t count) {
  static constexpr wchar_t kDigits[] = L"0123456789abcdef";
  std::wstring text;
  for (std::size_t i = 0; i < count; ++i) {
    const auto byte = static_cast<const std::uint8_t*>(bytes)[i];
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

// Whether the region is the whole of its allocation: nothing of the same allocation follows it.
bool StandsAlone(const MEMORY_BASIC_INFORMATION& region) {
  if (region.BaseAddress != region.AllocationBase) return false;
  MEMORY_BASIC_INFORMATION next{};
  const char* end = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
  return VirtualQuery(end, &next, sizeof next) == 0 || next.AllocationBase != region.AllocationBase;
}

}  // namespace

std::string SmallPrivateBlocksJson() {
  std::vector<std::string> blocks;
  MEMORY_BASIC_INFORMATION region{};
  for (const char* at = nullptr; VirtualQuery(at, &region, sizeof region) != 0;
       at = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
    if (region.State != MEM_COMMIT || region.Type != MEM_PRIVATE || region.RegionSize > kPage) continue;
    if ((region.Protect & (PAGE_READWRITE | PAGE_EXECUTE_READWRITE)) == 0 || !StandsAlone(region)) continue;
    std::array<std::uint8_t, kShownBytes> shown{};
    SIZE_T count = 0;
    ReadProcessMemory(GetCurrentProcess(), region.BaseAddress, shown.data(), shown.size(), &count);
    blocks.push_back(JsonObject()
                         .Number("base", reinterpret_cast<std::intptr_t>(region.BaseAddress))
                         .Number("size", static_cast<std::int64_t>(region.RegionSize))
                         .Text("bytes", Hexadecimal(shown.data(), count))
                         .Line());
  }
  return JsonList(blocks);
}

}  // namespace pointalk::target
