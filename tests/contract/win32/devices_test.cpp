// Devices that come and go: what the panel tells of them, and what becomes of the MIDI port.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <dbt.h>
#include <mmsystem.h>

#include "tests/contract/win32/patience.h"
#include "tests/contract/win32/win_world.h"
#include "tones/short_messages.h"

namespace pointalk::contract {
namespace {

using ::testing::ElementsAre;

constexpr ULONGLONG kDevicesSettle = 1500;  // milliseconds in which what must not come would have come

class DevicesTest : public ::testing::Test {
 protected:
  bool Told(int times, ULONGLONG milliseconds = kPatience) {
    return world_.RunUntil([&] { return world_.devices >= times; }, milliseconds);
  }

  WinWorld world_{{}};
  HWND panel_ = world_.platform.panel.Window();
  win32::WinMidiOut& midi_ = world_.platform.midi;
};

TEST_F(DevicesTest, AMachineThatWakesUpIsToldOfOnce) {
  PostMessageW(panel_, WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
  EXPECT_TRUE(Told(1));
  EXPECT_FALSE(Told(2, kDevicesSettle));
}

TEST_F(DevicesTest, SeveralChangesAtOnceAreToldOfOnce) {
  for (int i = 0; i < 5; ++i) SendMessageW(panel_, WM_DEVICECHANGE, DBT_DEVNODES_CHANGED, 0);
  EXPECT_EQ(world_.devices, 0);
  EXPECT_TRUE(Told(1));
  EXPECT_FALSE(Told(2, kDevicesSettle));
}

TEST_F(DevicesTest, TheyAreToldOfUntilSomethingCouldBeDone) {
  world_.followsDevices = false;
  PostMessageW(panel_, WM_DEVICECHANGE, DBT_DEVNODES_CHANGED, 0);
  EXPECT_TRUE(Told(3));
  world_.followsDevices = true;
  const int last = world_.devices + 1;
  EXPECT_TRUE(Told(last));
  EXPECT_FALSE(Told(last + 1, kDevicesSettle));
}

TEST_F(DevicesTest, OtherNewsOfPowerAndDevicesIsNotTold) {
  SendMessageW(panel_, WM_POWERBROADCAST, PBT_APMSUSPEND, 0);
  SendMessageW(panel_, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
  SendMessageW(panel_, WM_DEVICECHANGE, DBT_CONFIGCHANGED, 0);
  EXPECT_FALSE(Told(1, kDevicesSettle));
}

TEST_F(DevicesTest, APortIsOpenedAnewUnderItsHandle) {
  const MidiOpening opening = midi_.OpenMapper();
  EXPECT_TRUE(midi_.FollowDevices());
  EXPECT_TRUE(midi_.Send(opening.handle, NoteOn(kHigherToneChannel, 80, 60)));
  EXPECT_TRUE(midi_.Close(opening.handle));
  EXPECT_FALSE(midi_.Send(opening.handle, 0));
  EXPECT_THAT(world_.Heard(5),
              ElementsAre("midi open 0", "midi close", "midi open 0", "midi 0x3c509d", "midi close"));
}

// Closed behind its back, its handle counts no longer.
TEST_F(DevicesTest, AMessageThatALostPortRefusesGoesOutOnceMoreOnANewOne) {
  const MidiHandle port = midi_.OpenMapper().handle;
  midiOutClose(reinterpret_cast<HMIDIOUT>(static_cast<std::uintptr_t>(port)));
  EXPECT_TRUE(midi_.Send(port, NoteOn(kHigherToneChannel, 80, 60)));
  EXPECT_TRUE(midi_.Close(port));
  EXPECT_THAT(world_.Heard(5),
              ElementsAre("midi open 0", "midi close", "midi open 0", "midi 0x3c509d", "midi close"));
}

TEST_F(DevicesTest, APortOnWhichANoteSoundsIsLeftAlone) {
  const MidiHandle port = midi_.OpenMapper().handle;
  EXPECT_TRUE(midi_.Send(port, NoteOn(kHigherToneChannel, 80, 60)));
  EXPECT_FALSE(midi_.FollowDevices());
  EXPECT_TRUE(midi_.Send(port, NoteOff(kHigherToneChannel, 80, 60)));
  EXPECT_TRUE(midi_.FollowDevices());
  EXPECT_TRUE(midi_.Close(port));
  EXPECT_THAT(world_.Heard(6), ElementsAre("midi open 0", "midi 0x3c509d", "midi 0x3c508d", "midi close",
                                           "midi open 0", "midi close"));
}

TEST_F(DevicesTest, NoPortIsOpenedForWhoHasNone) {
  EXPECT_TRUE(midi_.FollowDevices());
  EXPECT_TRUE(midi_.Close(midi_.OpenMapper().handle));
  EXPECT_TRUE(midi_.FollowDevices());
  EXPECT_TRUE(midi_.PlayNamedSound(u"1", 1, 11));
  EXPECT_THAT(world_.Heard(3), ElementsAre("midi open 0", "midi close", "sound \"1\" 1 11"));
}

}  // namespace
}  // namespace pointalk::contract
