// What the menu reader leaves in the process that owns the menu.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "tests/reader/strange_controls.h"
#include "tests/support/forwarding.h"

namespace pointalk {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

class WrittenMemory final : public testing::ForwardingRemoteMemory {
 public:
  using ForwardingRemoteMemory::ForwardingRemoteMemory;

  RemoteAddress Allocate(ProcessId process, std::size_t bytes) override {
    allocated.emplace_back(process, bytes);
    return 0x1000;
  }
  bool Write(ProcessId, RemoteAddress, std::span<const std::byte> from) override {
    written.assign(from.begin(), from.end());
    return true;
  }
  bool Read(ProcessId, RemoteAddress, std::span<std::byte> to) override {
    std::copy(written.begin(), written.end(), to.begin());
    if (changed) {
      to[0] = std::byte{'X'};
      to[1] = std::byte{0};
    }
    return true;
  }

  std::vector<std::pair<ProcessId, std::size_t>> allocated;
  std::vector<std::byte> written;
  bool changed = false;  // by its process
};

class MenuReaderTest : public StrangeControls {
 protected:
  WrittenMemory memory{platform.memory};
  MenuReader reader{{menus, platform.windows, memory}, objectSpeech};
};

TEST_F(MenuReaderTest, SendsBlanksWithAnEndAndReadsThemBack) {
  menus.count = 4;
  menus.text = u"Open";
  EXPECT_TRUE(reader.ReadMenu(spot, false));
  EXPECT_THAT(memory.allocated, ElementsAre(Pair(1u, 256u)));
  std::vector<std::byte> expected(255, std::byte{' '});
  expected.push_back(std::byte{0});
  EXPECT_EQ(memory.written, expected);
  EXPECT_EQ(HeardWords(), "Open menu");
}

TEST_F(MenuReaderTest, TakesNoneOfTheBlockWhereTheItemHasNoText) {
  memory.changed = true;
  menus.text = u"Open";
  spot.className = u"Afx";
  reader.ReadMenu(spot, false);
  EXPECT_EQ(HeardWords(), "menu");
}

TEST_F(MenuReaderTest, TakesTheBlockUpToItsEnd) {
  memory.changed = true;
  menus.count = 4;
  reader.ReadMenu(spot, false);
  EXPECT_EQ(HeardWords(), "X menu");
}

TEST_F(MenuReaderTest, AsksForNoMemoryOfAProcessThatIsNotKnown) {
  sim::WindowFields fields;
  fields.id = 2;
  fields.process = 0;
  simulated.machine.desktop.Change(fields);
  reader.ReadMenu(spot, false);
  for (const auto& [process, bytes] : memory.allocated) EXPECT_EQ(process, 0u);
}

}  // namespace
}  // namespace pointalk
