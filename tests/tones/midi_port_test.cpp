// Channels, notes and instruments that no command brings about, and a port that refuses.
#include "tones/midi_port.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/tones/written_midi.h"

namespace pointalk {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MidiPortTest : public ::testing::Test, protected PortOnWrittenMidi {
 protected:
  MidiPortTest() { port.OpenMidiOut(); }
};

TEST_F(MidiPortTest, IgnoresChannelsThatDoNotExist) {
  for (const int channel : {-1, 16, 2147483647, -2147483647 - 1}) {
    port.PlayNote(channel);
    port.StrikeNote(channel);
    port.StopNote(channel);
    port.SetChannelProgram(channel, 5);
  }
  EXPECT_THAT(midi.sent, IsEmpty());
}

TEST_F(MidiPortTest, PlaysANoteOnceUntilAnotherWasStarted) {
  port.channels.mChannelProgram[13] = 50;
  port.channels.noteTarget[13] = 76;
  port.channels.noteVelocity[13] = 100;
  port.PlayNote(13);
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0x32CDu, 0x644C9Du));
  port.PlayNote(13);
  EXPECT_THAT(midi.TakeSent(), IsEmpty());
  port.StopNote(13);
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x644C8Du));
  port.PlayNote(13);
  EXPECT_THAT(midi.TakeSent(), IsEmpty()) << "stopped, and still the note last started";
  port.channels.noteTarget[13] = 77;
  port.PlayNote(13);
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0x32CDu, 0x644D9Du));
}

TEST_F(MidiPortTest, NeverPlaysNoteZeroOnAFreshChannel) {
  port.PlayNote(3);
  EXPECT_THAT(midi.sent, IsEmpty());
}

TEST_F(MidiPortTest, StopsTheOldNoteWithTheVelocityOfTheNew) {
  port.channels.noteTarget[14] = 40;
  port.channels.noteVelocity[14] = 20;
  port.PlayNote(14);
  midi.TakeSent();
  port.channels.noteTarget[14] = 41;
  port.channels.noteVelocity[14] = 30;
  port.PlayNote(14);
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x1E288Eu, 0xCEu, 0x1E299Eu));
}

TEST_F(MidiPortTest, SendsNothingToStopASilentChannel) {
  port.StopNote(13);
  port.StopPositionTones();
  port.StopEventChannels();
  EXPECT_THAT(midi.sent, IsEmpty());
}

TEST_F(MidiPortTest, TakesTheFirstInstrument) {
  port.SetChannelProgram(13, 200);
  midi.TakeSent();
  port.SetChannelProgram(13, 0);
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0xCDu));
}

TEST_F(MidiPortTest, TakesInstrumentsUpTo255) {
  port.SetChannelProgram(13, 200);
  port.SetChannelProgram(13, 200);
  port.SetChannelProgram(13, 255);
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0xC8CDu, 0xFFCDu));
  for (const std::int32_t instrument : {256, -1, 2147483647, -2147483647 - 1}) {
    port.SetChannelProgram(13, instrument);
  }
  EXPECT_THAT(midi.sent, IsEmpty());
  EXPECT_EQ(port.channels.mChannelProgram[13], 255);
  port.SetChannelProgram(0, 0);
  EXPECT_THAT(midi.sent, IsEmpty()) << "the instrument that a channel has from the beginning";
}

TEST_F(MidiPortTest, RepeatsTheFirstNoteOffBeforeTheSecondOfTheEventChannels) {
  for (const int channel : {11, 12}) {
    port.channels.noteTarget[static_cast<std::size_t>(channel)] = 60 + channel;
    port.StrikeNote(channel);
  }
  midi.TakeSent();
  port.StopEventChannels();
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x488Cu, 0x488Cu, 0x478Bu));
  port.StrikeNote(11);
  midi.TakeSent();
  port.StopEventChannels();
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x478Bu));
}

TEST_F(MidiPortTest, ClosesChannelByChannelAndOnce) {
  for (const int channel : {15, 3, 9}) {
    port.channels.noteTarget[static_cast<std::size_t>(channel)] = channel;
    port.StrikeNote(channel);
  }
  midi.TakeSent();
  port.CloseMidiOut();
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x383u, 0u, 0x989u, 0u, 0xF8Fu));
  EXPECT_THAT(midi.closed, ElementsAre(7u));
  EXPECT_FALSE(port.MouseTonesOn());
  port.CloseMidiOut();
  EXPECT_EQ(midi.closed.size(), 1u);
}

TEST_F(MidiPortTest, KeepsItsStateUpWhileTheMessagesAreRefusedOrThePortIsClosed) {
  midi.accepts = false;
  port.channels.noteTarget[13] = 76;
  port.PlayNote(13);
  EXPECT_TRUE(port.channels.noteOn[13]);
  EXPECT_EQ(port.channels.noteNumber[13], 76);
  port.CloseMidiOut();
  EXPECT_FALSE(port.MouseTonesOn()) << "though it did not close";
  midi.TakeSent();
  port.channels.noteTarget[13] = 77;
  port.PlayNote(13);
  port.SetChannelProgram(13, 9);
  EXPECT_TRUE(port.channels.noteOn[13]);
  EXPECT_EQ(port.channels.mChannelProgram[13], 9);
  EXPECT_THAT(midi.sent, IsEmpty());
}

TEST_F(MidiPortTest, OpenedTwiceSendsToTheLaterHandle) {
  midi.handle = 8;
  port.OpenMidiOut();
  EXPECT_EQ(midi.openings, 2);
  EXPECT_THAT(midi.closed, IsEmpty());
  port.SetChannelProgram(13, 9);
  EXPECT_EQ(midi.sentTo, 8u);
}

TEST_F(MidiPortTest, FailedOpeningKeepsAnOpenPort) {
  midi.result = 4;
  midi.handle = 0;
  simulated.machine.answers.push_back(kAnswerYes);
  port.OpenMidiOut();
  EXPECT_TRUE(port.MouseTonesOn());
  port.SetChannelProgram(13, 9);
  EXPECT_EQ(midi.sentTo, 7u);
}

}  // namespace
}  // namespace pointalk
