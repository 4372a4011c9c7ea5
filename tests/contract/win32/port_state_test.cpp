// When the MIDI port is opened anew, and when that has to wait.
#include "win32/port_state.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <mmsystem.h>

#include "tones/short_messages.h"

namespace pointalk::contract {
namespace {

using win32::PortState;
using namespace std::chrono_literals;

constexpr PortState::Time kNow{100s};

TEST(PortState, OnlyAPortWhoseDeviceIsGoneIsLost) {
  const PortState port;
  for (const std::uint32_t error : {MMSYSERR_NODRIVER, MMSYSERR_INVALHANDLE, MIDIERR_NODEVICE})
    EXPECT_TRUE(port.IsLost(error, kNow)) << error;
  for (const std::uint32_t error : {MMSYSERR_NOERROR, MMSYSERR_ERROR, MMSYSERR_ALLOCATED, MMSYSERR_NOMEM,
                                    MMSYSERR_INVALPARAM, MIDIERR_NOTREADY, MIDIERR_STILLPLAYING})
    EXPECT_FALSE(port.IsLost(error, kNow)) << error;
}

TEST(PortState, ItIsNotLostAgainWithinASecond) {
  PortState port;
  port.Reopened(kNow);
  EXPECT_FALSE(port.IsLost(MMSYSERR_NODRIVER, kNow));
  EXPECT_FALSE(port.IsLost(MMSYSERR_NODRIVER, kNow + 999ms));
  EXPECT_TRUE(port.IsLost(MMSYSERR_NODRIVER, kNow + 1s));
  port.Reopened(kNow + 1s);
  EXPECT_FALSE(port.IsLost(MMSYSERR_NODRIVER, kNow + 1999ms));
}

TEST(PortState, ANoteSoundsUntilItIsEnded) {
  PortState port;
  EXPECT_FALSE(port.NoteSounds());
  port.Sent(ProgramChange(kHigherToneChannel, 74), true);
  EXPECT_FALSE(port.NoteSounds());
  port.Sent(NoteOn(kHigherToneChannel, 80, 60), true);
  port.Sent(NoteOn(kLowerToneChannel, 80, 60), true);
  port.Sent(0, true);
  port.Sent(NoteOff(kHigherToneChannel, 80, 60), true);
  EXPECT_TRUE(port.NoteSounds());
  port.Sent(NoteOff(kLowerToneChannel, 79, 60), true);
  EXPECT_TRUE(port.NoteSounds());
  port.Sent(NoteOff(kLowerToneChannel, 80, 0), true);
  EXPECT_FALSE(port.NoteSounds());
}

TEST(PortState, ANoteThatIsRefusedDoesNotSound) {
  PortState port;
  port.Sent(NoteOn(kEventChannel, 72, 60), false);
  EXPECT_FALSE(port.NoteSounds());
}

// Else a port whose devices changed would never be opened anew.
TEST(PortState, ANoteWhoseEndIsRefusedIsNotWaitedFor) {
  for (const std::uint32_t end : {NoteOff(kEventChannel, 72, 60), NoteOn(kEventChannel, 72, 0)}) {
    PortState port;
    port.Sent(NoteOn(kEventChannel, 72, 60), true);
    port.Sent(end, false);
    EXPECT_FALSE(port.NoteSounds());
  }
}

TEST(PortState, ANoteWithoutLoudnessIsSilent) {
  PortState port;
  port.Sent(NoteOn(kEventChannel, 72, 0), true);
  EXPECT_FALSE(port.NoteSounds());
  port.Sent(NoteOn(kEventChannel, 72, 60), true);
  port.Sent(NoteOn(kEventChannel, 72, 0), true);
  EXPECT_FALSE(port.NoteSounds());
}

TEST(PortState, NumbersThatMidiDoesNotKnowAreTakenAsADeviceSeesThem) {
  PortState port;
  port.Sent(NoteOn(kEventChannel, 231, 127), true);
  EXPECT_TRUE(port.NoteSounds());
  port.Sent(NoteOff(kEventChannel, 231, 127), true);
  EXPECT_FALSE(port.NoteSounds());
  port.Sent(0xFFFFFFFF, true);
  EXPECT_FALSE(port.NoteSounds());
}

TEST(PortState, NoNoteSoundsOnAPortThatWasOpenedAnew) {
  PortState port;
  port.Sent(NoteOn(kEventChannel, 72, 60), true);
  port.Reopened(kNow);
  EXPECT_FALSE(port.NoteSounds());
}

}  // namespace
}  // namespace pointalk::contract
