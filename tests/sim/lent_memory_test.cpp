// A message that carries the address of a block in another process and is not answered in time may still be
// at work with it. Nobody frees, writes or reads that block from then on: it is handed over to the platform,
// which gives it back once the control has answered.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "sim/player.h"
#include "sim/script.h"
#include "sim/script_error.h"
#include "tests/support/forwarding.h"
#include "tests/support/replaced.h"

namespace pointalk::sim {
namespace {

using ::testing::IsEmpty;

// Which blocks the program has, and which of them a control may be at work with.
struct Blocks {
  std::set<RemoteAddress> had;
  std::set<RemoteAddress> lent;
  std::vector<std::string> wrongs;
};

// One of the messages that carry a block's address is not answered.
class LateMessages final : public testing::ForwardingControlMessages {
 public:
  LateMessages(ControlMessages& messages, Blocks& blocks, int& count, int late)
      : ForwardingControlMessages(messages), blocks_(blocks), count_(count), late_(late) {}

  std::optional<std::int32_t> Send(WindowHandle window, std::uint32_t message, std::uint64_t wParam,
                                   std::uint64_t lParam) override {
    if (!blocks_.had.contains(lParam) || ++count_ != late_)
      return ForwardingControlMessages::Send(window, message, wParam, lParam);
    blocks_.lent = blocks_.had;  // a record may hold the address of another block
    return std::nullopt;
  }

 private:
  Blocks& blocks_;
  int& count_;
  int late_;
};

class WatchedMemory final : public testing::ForwardingRemoteMemory {
 public:
  WatchedMemory(RemoteMemory& memory, Blocks& blocks) : ForwardingRemoteMemory(memory), blocks_(blocks) {}

  RemoteAddress Allocate(ProcessId process, std::size_t bytes) override {
    const RemoteAddress block = ForwardingRemoteMemory::Allocate(process, bytes);
    if (block != 0) blocks_.had.insert(block);
    return block;
  }
  bool Write(ProcessId process, RemoteAddress to, std::span<const std::byte> from) override {
    Record("written", to);
    return ForwardingRemoteMemory::Write(process, to, from);
  }
  bool Read(ProcessId process, RemoteAddress from, std::span<std::byte> to) override {
    Record("read", from);
    return ForwardingRemoteMemory::Read(process, from, to);
  }
  void Free(ProcessId process, RemoteAddress block) override {
    Record("freed", block);
    blocks_.had.erase(block);
    ForwardingRemoteMemory::Free(process, block);
  }
  void FreeOnceAnswered(ProcessId, RemoteAddress block, WindowHandle) override {
    blocks_.had.erase(block);  // stays where it is, so that no other block has its address
  }

 private:
  void Record(const char* action, RemoteAddress block) {
    if (blocks_.lent.contains(block)) blocks_.wrongs.emplace_back(action);
  }

  Blocks& blocks_;
};

struct Fronts {
  LateMessages messages;
  WatchedMemory memory;
};

struct LateOutcome {
  Blocks blocks;
  int count = 0;  // of messages that carry a block's address
};

LateOutcome PlayWithOneLate(const Script& script, int late) {
  LateOutcome outcome;
  std::vector<std::unique_ptr<Fronts>> fronts;
  try {
    Player player(script, [&](const Platform& seam) {
      fronts.push_back(
          std::make_unique<Fronts>(Fronts{LateMessages(seam.messages, outcome.blocks, outcome.count, late),
                                          WatchedMemory(seam.memory, outcome.blocks)}));
      return testing::Replaced(seam, fronts.back()->messages, fronts.back()->memory);
    });
    player.Play();
  } catch (const ScriptError&) {
  }
  return outcome;
}

TEST(LentMemory, IsLeftToThePlatformWhicheverMessageIsLate) {
  int tried = 0;
  for (const char* folder : {"lists", "text-fields"}) {
    const std::filesystem::path scripts = POINTALK_SOURCE_DIR "/tests/rehearsals";
    for (const auto& entry : std::filesystem::directory_iterator(scripts / folder)) {
      if (entry.path().extension() != ".json") continue;
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string source((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
      const Script script = ReadScript(source);
      const int count = PlayWithOneLate(script, 0).count;
      for (int late = 1; late <= count; ++late, ++tried) {
        SCOPED_TRACE(entry.path().string() + ", message " + std::to_string(late));
        const LateOutcome outcome = PlayWithOneLate(script, late);
        EXPECT_FALSE(outcome.blocks.lent.empty());
        EXPECT_THAT(outcome.blocks.wrongs, IsEmpty());
      }
    }
  }
  EXPECT_GT(tried, 100);
}

}  // namespace
}  // namespace pointalk::sim
