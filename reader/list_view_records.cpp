// Fields at the places that the platform's headers give them, for pointers of 4 and of 8 bytes.
#include "reader/list_view_records.h"

#include <cstring>
#include <type_traits>

namespace pointalk {
namespace {

constexpr std::uint32_t kTextWanted = 1;

// LVHITTESTINFO: the same places in both layouts.
constexpr std::size_t kHitX = 0;
constexpr std::size_t kHitY = 4;
constexpr std::size_t kHitFlags = 8;
constexpr std::size_t kHitItem = 12;
constexpr std::size_t kHitSubItem = 16;
constexpr std::size_t kHitSize32 = 20;
constexpr std::size_t kHitSize64 = 24;

// LVITEMA.
constexpr std::size_t kItemMask = 0;
constexpr std::size_t kItemIndex = 4;
constexpr std::size_t kItemText32 = 20;
constexpr std::size_t kItemText64 = 24;
constexpr std::size_t kItemSize32 = 40;
constexpr std::size_t kItemSize64 = 88;

template <class Number> void Put(std::span<std::byte> bytes, std::size_t at, Number number) {
  static_assert(std::is_integral_v<Number>);
  std::memcpy(bytes.data() + at, &number, sizeof number);
}

template <class Number> Number Get(std::span<const std::byte> bytes, std::size_t at) {
  static_assert(std::is_integral_v<Number>);
  Number number{};
  std::memcpy(&number, bytes.data() + at, sizeof number);
  return number;
}

}  // namespace

HitTestRecord::HitTestRecord(const ListViewHit& hit, int pointerBytes)
    : size_(pointerBytes == 8 ? kHitSize64 : kHitSize32) {
  Put(bytes_, kHitX, hit.client.x);
  Put(bytes_, kHitY, hit.client.y);
  Put(bytes_, kHitFlags, hit.flags);
  Put(bytes_, kHitItem, hit.item);
  Put(bytes_, kHitSubItem, hit.subItem);
}

ListViewHit HitTestRecord::Hit() const {
  return {{Get<std::int32_t>(bytes_, kHitX), Get<std::int32_t>(bytes_, kHitY)},
          Get<std::uint32_t>(bytes_, kHitFlags),
          Get<std::int32_t>(bytes_, kHitItem),
          Get<std::int32_t>(bytes_, kHitSubItem)};
}

ItemRecord::ItemRecord(std::int32_t item, RemoteAddress text, std::int32_t capacity, int pointerBytes)
    : size_(pointerBytes == 8 ? kItemSize64 : kItemSize32) {
  Put(bytes_, kItemMask, kTextWanted);
  Put(bytes_, kItemIndex, item);
  if (pointerBytes == 8) {
    Put(bytes_, kItemText64, text);
    Put(bytes_, kItemText64 + 8, capacity);
  } else {
    Put(bytes_, kItemText32, static_cast<std::uint32_t>(text));
    Put(bytes_, kItemText32 + 4, capacity);
  }
}

}  // namespace pointalk
