// Memory in other processes, and the records that list views read and write there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "reader/list_view_records.h"
#include "reader/messages.h"
#include "reader/remote_block.h"
#include "tests/contract/asking.h"
#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

using ::testing::Each;
using ::testing::Eq;

constexpr int kLabelBytes = 255;

class RemoteMemoryContract : public ::testing::Test {
 protected:
  bool Sent(std::uint32_t message, RemoteAddress record) {
    return Answered([&] { return messages_.Send(list_, message, 0, record); }).has_value();
  }

  ListViewHit HitTest(Point screen) {
    HitTestRecord record({windows_.ToClient(list_, screen).value()}, memory_.PointerBytes(process_));
    RemoteBlock remote(memory_, process_, record.Bytes().size());
    EXPECT_TRUE(remote.Write(record.Bytes()));
    EXPECT_TRUE(Sent(kLvmSubItemHitTest, remote.Address()));
    EXPECT_TRUE(remote.Read(record.Bytes()));
    return record.Hit();
  }

  Text Label(std::int32_t item, std::int32_t capacity) {
    std::array<std::byte, kLabelBytes> label{};
    RemoteBlock text(memory_, process_, label.size());
    ItemRecord record(item, text.Address(), capacity, memory_.PointerBytes(process_));
    RemoteBlock remote(memory_, process_, record.Bytes().size());
    EXPECT_TRUE(remote.Write(record.Bytes()));
    EXPECT_TRUE(Sent(kLvmGetItemA, remote.Address()));
    EXPECT_TRUE(text.Read(label));
    const Text whole = world_->Seam().ansi.ToText(label);
    return whole.substr(0, whole.find(u'\0'));
  }

  std::unique_ptr<World> world_ = MakeWorld({{
      {"frame", u"ContractFrame", u"", {100, 100, 700, 500}},
      {"icons",
       u"SysListView32",
       u"",
       {110, 110, 600, 400},
       "frame",
       {u"Letters", u"Gr\u00FC\u00DFe", u"Music"}},
  }});
  WindowTree& windows_ = world_->Seam().windows;
  ControlMessages& messages_ = world_->Seam().messages;
  RemoteMemory& memory_ = world_->Seam().memory;
  WindowHandle list_ = world_->Window("icons");
  ProcessId process_ = windows_.ProcessOf(list_).value();
};

TEST_F(RemoteMemoryContract, AFreshBlockHoldsZerosAndThenWhatWasWritten) {
  const RemoteAddress block = memory_.Allocate(process_, 16);
  ASSERT_NE(block, 0U);
  std::array<std::byte, 16> bytes;
  bytes.fill(std::byte{1});
  ASSERT_TRUE(memory_.Read(process_, block, bytes));
  EXPECT_THAT(bytes, Each(Eq(std::byte{0})));
  const std::array<std::byte, 2> written{std::byte{7}, std::byte{9}};
  ASSERT_TRUE(memory_.Write(process_, block + 3, written));
  ASSERT_TRUE(memory_.Read(process_, block, bytes));
  EXPECT_EQ(bytes[2], std::byte{0});
  EXPECT_EQ(bytes[3], std::byte{7});
  EXPECT_EQ(bytes[4], std::byte{9});
  memory_.Free(process_, block);
}

TEST_F(RemoteMemoryContract, BlocksAreApart) {
  const RemoteAddress first = memory_.Allocate(process_, 20);
  const RemoteAddress second = memory_.Allocate(process_, 20);
  EXPECT_NE(first, second);
  std::array<std::byte, 20> ones;
  ones.fill(std::byte{1});
  EXPECT_TRUE(memory_.Write(process_, first, ones));
  EXPECT_TRUE(memory_.Read(process_, second, ones));
  EXPECT_THAT(ones, Each(Eq(std::byte{0})));
  memory_.Free(process_, first);
  memory_.Free(process_, second);
}

TEST_F(RemoteMemoryContract, AddressZeroIsNoBlock) {
  std::array<std::byte, 4> bytes{};
  EXPECT_FALSE(memory_.Write(process_, 0, bytes));
  EXPECT_FALSE(memory_.Read(process_, 0, bytes));
  memory_.Free(process_, 0);
}

TEST_F(RemoteMemoryContract, NoProcessHasNoMemory) {
  EXPECT_EQ(memory_.Allocate(0, 16), 0U);
  EXPECT_EQ(memory_.Allocate(process_, 0), 0U);
}

TEST_F(RemoteMemoryContract, AListViewFindsTheItemUnderAPoint) {
  for (int item = 0; item < 3; ++item) {
    const ListViewHit hit = HitTest(world_->ItemPlace("icons", item));
    EXPECT_EQ(hit.item, item);
    EXPECT_EQ(hit.flags, kHitLabel);
  }
  const ListViewHit nowhere = HitTest({595, 395});
  EXPECT_EQ(nowhere.item, -1);
  EXPECT_EQ(nowhere.flags & (kHitIcon | kHitLabel), 0U);
}

TEST_F(RemoteMemoryContract, AListViewWritesItsLabels) {
  EXPECT_EQ(Label(0, kLabelBytes), u"Letters");
  EXPECT_EQ(Label(1, kLabelBytes), u"Gr\u00FC\u00DFe");
  EXPECT_EQ(Label(7, kLabelBytes), u"");
}

}  // namespace
}  // namespace pointalk::contract
