// The two records that list views of other processes are asked with, laid out as those processes have them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/types.h"

namespace pointalk {

// Flags of a hit.
inline constexpr std::uint32_t kHitIcon = 2;
inline constexpr std::uint32_t kHitLabel = 4;
inline constexpr std::uint32_t kHitStateIcon = 8;
inline constexpr std::uint32_t kHitAnywhere = kHitIcon | kHitLabel | kHitStateIcon;

struct ListViewHit {
  Point client;  // in client coordinates
  std::uint32_t flags = kHitAnywhere;
  std::int32_t item = 0;
  std::int32_t subItem = 0;
};

// A hit-test record: 20 bytes in a process with pointers of 4 bytes; 24 with 8, of which the last four are 0.
class HitTestRecord {
 public:
  HitTestRecord(const ListViewHit& hit, int pointerBytes);

  std::span<std::byte> Bytes() { return std::span(bytes_).first(size_); }
  ListViewHit Hit() const;

 private:
  std::array<std::byte, 24> bytes_{};
  std::size_t size_;
};

// An item record that asks for a text: 40 bytes in a process with pointers of 4 bytes, 88 with 8.
class ItemRecord {
 public:
  ItemRecord(std::int32_t item, RemoteAddress text, std::int32_t capacity, int pointerBytes);

  std::span<std::byte> Bytes() { return std::span(bytes_).first(size_); }

 private:
  std::array<std::byte, 88> bytes_{};
  std::size_t size_;
};

}  // namespace pointalk
