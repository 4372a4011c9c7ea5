// Who gives back a block in another process.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <vector>

#include "reader/messages.h"
#include "reader/remote_block.h"
#include "tests/reader/strange_controls.h"
#include "tests/support/forwarding.h"

namespace pointalk {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr WindowHandle kWindow = 2;
constexpr ProcessId kProcess = 1;

class TalliedMemory final : public testing::ForwardingRemoteMemory {
 public:
  using ForwardingRemoteMemory::ForwardingRemoteMemory;

  void Free(ProcessId, RemoteAddress block) override { freed.push_back(block); }
  void FreeOnceAnswered(ProcessId, RemoteAddress block, WindowHandle window) override {
    handedOver.push_back(block);
    borrowers.push_back(window);
  }

  std::vector<RemoteAddress> freed;
  std::vector<RemoteAddress> handedOver;
  std::vector<WindowHandle> borrowers;
};

class RemoteBlockTest : public StrangeControls {
 protected:
  TalliedMemory memory{platform.memory};
};

TEST_F(RemoteBlockTest, IsFreedOnceItsMessageIsAnswered) {
  RemoteAddress address = 0;
  {
    RemoteBlock block(memory, kProcess, 8);
    address = block.Address();
    EXPECT_TRUE(block.Ask(messages, kWindow, kEmCharFromPos));
    EXPECT_FALSE(block.IsLent());
  }
  EXPECT_THAT(memory.freed, ElementsAre(address));
  EXPECT_THAT(memory.handedOver, IsEmpty());
}

TEST_F(RemoteBlockTest, IsHandedOverWhileItsMessageIsNot) {
  messages.answers[kEmCharFromPos] = std::nullopt;
  RemoteAddress address = 0;
  {
    RemoteBlock block(memory, kProcess, 8);
    address = block.Address();
    EXPECT_FALSE(block.Ask(messages, kWindow, kEmCharFromPos));
    EXPECT_TRUE(block.IsLent());
  }
  EXPECT_THAT(memory.freed, IsEmpty());
  EXPECT_THAT(memory.handedOver, ElementsAre(address));
  EXPECT_THAT(memory.borrowers, ElementsAre(kWindow));
}

// A message that fails for want of memory may have been sent before.
TEST_F(RemoteBlockTest, IsHandedOverWhenSendingItFails) {
  class Failing final : public testing::ForwardingControlMessages {
   public:
    using ForwardingControlMessages::ForwardingControlMessages;
    std::optional<std::int32_t> Send(WindowHandle, std::uint32_t, std::uint64_t, std::uint64_t) override {
      throw std::bad_alloc();
    }
  };
  Failing failing(messages);
  EXPECT_THROW(
      {
        RemoteBlock block(memory, kProcess, 8);
        block.Ask(failing, kWindow, kEmCharFromPos);
      },
      std::bad_alloc);
  EXPECT_THAT(memory.freed, IsEmpty());
  EXPECT_THAT(memory.handedOver, ::testing::SizeIs(1));
}

TEST_F(RemoteBlockTest, OfALabelIsHandedOverWithItsRecord) {
  ListViewReader reader({messages, platform.windows, memory, platform.ansi}, speaker, sounds, desktop,
                        objectSpeech, titles);
  messages.answers[kLvmGetItemA] = std::nullopt;
  EXPECT_EQ(reader.ListViewItemText(kWindow, 0, 0), u"");
  EXPECT_THAT(memory.freed, IsEmpty());
  EXPECT_THAT(memory.handedOver, ::testing::SizeIs(2));
}

TEST_F(RemoteBlockTest, OfARichEditIsNotAskedWithAgainAfterALateAnswer) {
  EditReaders reader({messages, platform.windows, memory}, objectSpeech, controls, words);
  messages.answers[kEmCharFromPos] = std::nullopt;
  reader.ReadRichEdit(spot);
  const auto asked = std::count_if(messages.sent.begin(), messages.sent.end(),
                                   [](const auto& sent) { return sent.message == kEmCharFromPos; });
  EXPECT_EQ(asked, 1);
  EXPECT_THAT(memory.freed, IsEmpty());
  EXPECT_THAT(memory.handedOver, ::testing::SizeIs(1));
}

}  // namespace
}  // namespace pointalk
