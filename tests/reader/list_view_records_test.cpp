// The records' sizes and the places of their fields, for pointers of 4 and of 8 bytes.
#include "reader/list_view_records.h"

#include <gtest/gtest.h>

#include <cstring>

namespace pointalk {
namespace {

std::uint32_t NumberAt(std::span<const std::byte> bytes, std::size_t place) {
  std::uint32_t number = 0;
  std::memcpy(&number, bytes.subspan(place, 4).data(), 4);
  return number;
}

TEST(HitTestRecord, IsLaidOutAsTheProcessHasIt) {
  const ListViewHit hit{{7, -9}, kHitAnywhere, 3, 2};
  for (const int pointerBytes : {4, 8}) {
    HitTestRecord record(hit, pointerBytes);
    ASSERT_EQ(record.Bytes().size(), pointerBytes == 8 ? 24u : 20u);
    EXPECT_EQ(NumberAt(record.Bytes(), 0), 7u);
    EXPECT_EQ(NumberAt(record.Bytes(), 4), static_cast<std::uint32_t>(-9));
    EXPECT_EQ(NumberAt(record.Bytes(), 8), 14u);
    EXPECT_EQ(NumberAt(record.Bytes(), 12), 3u);
    EXPECT_EQ(NumberAt(record.Bytes(), 16), 2u);
    if (pointerBytes == 8) {
      EXPECT_EQ(NumberAt(record.Bytes(), 20), 0u);
    }
  }
}

TEST(HitTestRecord, GivesBackWhatTheListWrote) {
  HitTestRecord record(ListViewHit{{1, 2}}, 4);
  const std::uint32_t answer[] = {1, 2, 4, 0xFFFFFFFF, 5};
  std::memcpy(record.Bytes().data(), answer, sizeof answer);
  const ListViewHit hit = record.Hit();
  EXPECT_EQ(hit.client, (Point{1, 2}));
  EXPECT_EQ(hit.flags, kHitLabel);
  EXPECT_EQ(hit.item, -1);
  EXPECT_EQ(hit.subItem, 5);
}

TEST(HitTestRecord, CountsAsOnTheFirstItemWhileNothingAnswers) {
  const ListViewHit hit = HitTestRecord(ListViewHit(), 4).Hit();
  EXPECT_EQ(hit.flags, 14u);
  EXPECT_EQ(hit.item, 0);
  EXPECT_EQ(hit.subItem, 0);
}

TEST(ItemRecord, IsLaidOutForPointersOf4Bytes) {
  ItemRecord record(3, 0x11223344, 255, 4);
  constexpr std::uint32_t kFields[] = {1, 3, 0, 0, 0, 0x11223344, 255, 0, 0, 0};
  ASSERT_EQ(record.Bytes().size(), sizeof kFields);
  EXPECT_EQ(std::memcmp(record.Bytes().data(), kFields, sizeof kFields), 0);
}

TEST(ItemRecord, IsLaidOutForPointersOf8Bytes) {
  ItemRecord record(-2, 0x1122334455667788, 255, 8);
  constexpr std::uint32_t kFields[] = {1, 0xFFFFFFFE, 0, 0, 0, 0, 0x55667788, 0x11223344, 255, 0, 0,
                                       0, 0,          0, 0, 0, 0, 0,          0,          0,   0, 0};
  ASSERT_EQ(record.Bytes().size(), sizeof kFields);
  EXPECT_EQ(std::memcmp(record.Bytes().data(), kFields, sizeof kFields), 0);
}

}  // namespace
}  // namespace pointalk
