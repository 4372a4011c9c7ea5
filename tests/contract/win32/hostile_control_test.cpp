// Controls that answer with counts and texts that no honest one would give.
#include <gtest/gtest.h>

#include "tests/contract/win32/win_world.h"
#include "win32/handles.h"

namespace pointalk::contract {
namespace {

class HostileControlTest : public ::testing::Test {
 protected:
  WinWorld world_{{{
      {"frame", u"ContractFrame", u"Frame", {100, 100, 700, 500}},
      {"edit", u"Edit", u"line", {110, 110, 300, 250}, "frame"},
      {"list", u"ListBox", u"", {310, 110, 450, 250}, "frame", {u"Apple"}},
  }}};
  ControlMessages& messages_ = world_.platform.messages;
  WindowHandle edit_ = world_.Window("edit");
  WindowHandle list_ = world_.Window("list");
};

TEST_F(HostileControlTest, ALineOfACountThatMakesNoSenseIsNone) {
  for (const char* count : {"70000", "-1", "-2147483648"}) {
    world_.Tell(std::string("rule edit EM_GETLINE result ") + count);
    EXPECT_EQ(messages_.EditLine(edit_, 0, 100), std::nullopt) << count;
  }
}

TEST_F(HostileControlTest, ALineThatWasAnnouncedButNotWrittenIsEmpty) {
  for (const char* count : {"1", "4", "100"}) {
    world_.Tell(std::string("rule edit EM_GETLINE result ") + count);
    EXPECT_EQ(messages_.EditLine(edit_, 0, 100), u"") << count;
  }
}

TEST_F(HostileControlTest, ATextOfACountThatMakesNoSenseIsCutToItsRoom) {
  world_.Tell("rule frame WM_GETTEXT text \"something longer\" 100000");
  EXPECT_EQ(messages_.WindowText(world_.Window("frame"), 10), u"something");
}

TEST_F(HostileControlTest, AnItemLongerThanAnnouncedIsCut) {
  world_.Tell("rule list LB_GETTEXT text \"" + std::string(20'000, 'x') + "\" 5");
  EXPECT_EQ(messages_.ListBoxText(list_, 0, 5), u"xxxxx");
}

TEST_F(HostileControlTest, AnItemThatWasNotWrittenIsNuls) {
  world_.Tell("rule list LB_GETTEXT result 5");
  EXPECT_EQ(messages_.ListBoxText(list_, 0, 5), Text(5, u'\0'));
}

TEST_F(HostileControlTest, AnItemWithoutAStringHoldsANul) {
  world_.Tell("create drawn class=ListBox kind=ownerdrawn parent=frame rect=460,110,600,250");
  world_.Tell("data drawn 0x41 0x42");
  const WindowHandle drawn = world_.platform.windows.WindowAt({530, 200});
  const auto text = messages_.ListBoxText(drawn, 0, 8);
  ASSERT_TRUE(text);
  EXPECT_NE(text->find(u'\0'), Text::npos);
}

TEST_F(HostileControlTest, AFreedBlockIsGoneFromTheOtherProgram) {
  RemoteMemory& memory = world_.platform.memory;
  const ProcessId process = world_.platform.windows.ProcessOf(edit_).value();
  const RemoteAddress block = memory.Allocate(process, 40);
  const std::string base = "\"base\":" + std::to_string(block);
  EXPECT_NE(world_.Tell("memory").find(base), std::string::npos);
  memory.Free(process, block);
  EXPECT_EQ(world_.Tell("memory").find(base), std::string::npos);
}

// What another program puts into a block can be read, and never run.
TEST_F(HostileControlTest, ABlockHoldsDataOnly) {
  RemoteMemory& memory = world_.platform.memory;
  const ProcessId process = world_.platform.windows.ProcessOf(edit_).value();
  const RemoteAddress block = memory.Allocate(process, 40);
  const win32::OwnedHandle handle(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, process));
  MEMORY_BASIC_INFORMATION region{};
  EXPECT_NE(VirtualQueryEx(handle.get(), reinterpret_cast<const void*>(static_cast<std::uintptr_t>(block)),
                           &region, sizeof region),
            0U);
  EXPECT_EQ(region.Protect, DWORD{PAGE_READWRITE});
  memory.Free(process, block);
}

TEST_F(HostileControlTest, APointerHasTheSizeOfTheOtherProgramsOwn) {
  EXPECT_EQ(world_.platform.memory.PointerBytes(world_.platform.windows.ProcessOf(edit_).value()),
            static_cast<int>(sizeof(void*)));
  EXPECT_EQ(world_.platform.memory.PointerBytes(0), 4);
}

}  // namespace
}  // namespace pointalk::contract
