#include "sim/process_memory.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace pointalk::sim {
namespace {

using Bytes = std::vector<std::byte>;

TEST(ProcessMemory, FreshBlocksHoldZeros) {
  ProcessMemory memory;
  const RemoteAddress block = memory.Allocate(7, 3);
  ASSERT_NE(block, 0u);
  Bytes read(3, std::byte{1});
  EXPECT_TRUE(memory.Read(7, block, read));
  EXPECT_EQ(read, Bytes(3));
}

TEST(ProcessMemory, CopiesWithinOneBlockOnly) {
  ProcessMemory memory;
  const RemoteAddress block = memory.Allocate(7, 8);
  EXPECT_TRUE(memory.WriteNumber(7, block + 4, 0x89ABCDEF));
  EXPECT_EQ(memory.ReadNumber(7, block + 4), 0x89ABCDEF);
  EXPECT_EQ(memory.ReadNumber(7, block + 5), std::nullopt);
  EXPECT_FALSE(memory.WriteNumber(7, block + 5, 1));
  EXPECT_EQ(memory.ReadNumber(7, block + 4), 0x89ABCDEF);
  EXPECT_EQ(memory.ReadNumber(7, block - 1), std::nullopt);
  EXPECT_EQ(memory.ReadNumber(8, block), std::nullopt);
}

TEST(ProcessMemory, AddressZeroIsNoMemory) {
  ProcessMemory memory;
  std::array<std::byte, 1> byte{};
  EXPECT_FALSE(memory.Read(7, 0, byte));
  EXPECT_FALSE(memory.Write(7, 0, byte));
  memory.Free(7, 0);
  EXPECT_EQ(memory.Allocate(0, 16), 0u);
  EXPECT_EQ(memory.Allocate(7, 0), 0u);
  EXPECT_EQ(memory.BlockCount(), 0u);
}

TEST(ProcessMemory, CountsTheBlocksThatAreNotFreed) {
  ProcessMemory memory;
  const RemoteAddress first = memory.Allocate(7, 20);
  const RemoteAddress second = memory.Allocate(7, 20);
  const RemoteAddress other = memory.Allocate(8, 20);
  EXPECT_NE(first, second);
  memory.Free(7, first);
  memory.Free(7, first);
  memory.Free(7, second + 1);
  EXPECT_EQ(memory.BlockCount(), 2u);
  memory.Free(7, second);
  memory.Free(8, other);
  EXPECT_EQ(memory.BlockCount(), 0u);
}

TEST(ProcessMemory, AddressesFitThirtyTwoBitsHoweverOftenTheyAreTaken) {
  ProcessMemory memory;
  const RemoteAddress kept = memory.Allocate(7, 20);
  ASSERT_TRUE(memory.WriteNumber(7, kept, 42));
  constexpr std::size_t kBytes = 100'000;
  for (int i = 0; i < 30'000; ++i) {  // more of them than there are addresses for
    const RemoteAddress block = memory.Allocate(7, kBytes);
    ASSERT_NE(block, 0u);
    ASSERT_LE(block + kBytes, 0x80000000u);
    memory.Free(7, block);
  }
  EXPECT_EQ(memory.ReadNumber(7, kept), 42u);
}

}  // namespace
}  // namespace pointalk::sim
