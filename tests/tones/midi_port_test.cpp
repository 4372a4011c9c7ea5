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
  MidiPortTest() { EXPECT_TRUE(port.Open()); }
};

TEST_F(MidiPortTest, IgnoresChannelsThatDoNotExist) {
  for (const int channel : {-1, 16, 2147483647, -2147483647 - 1}) {
    port.PlayNote(channel, {60, 100});
    port.StrikeNote(channel, {60, 100});
    port.StopNote(channel);
    port.SetChannelProgram(channel, 5);
    port.PresetChannelProgram(channel, 5);
    EXPECT_EQ(port.ChannelProgram(channel), 0);
  }
  EXPECT_THAT(midi.sent, IsEmpty());
}

TEST_F(MidiPortTest, PlaysANoteOnceUntilAnotherWasStarted) {
  port.PresetChannelProgram(13, 50);
  port.PlayNote(13, {76, 100});
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0x32CDu, 0x644C9Du));
  port.PlayNote(13, {76, 100});
  EXPECT_THAT(midi.TakeSent(), IsEmpty());
  port.StopNote(13);
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x644C8Du));
  port.PlayNote(13, {76, 100});
  EXPECT_THAT(midi.TakeSent(), IsEmpty()) << "stopped, and still the note last started";
  port.PlayNote(13, {77, 100});
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0x32CDu, 0x644D9Du));
}

TEST_F(MidiPortTest, NeverPlaysNoteZeroOnAFreshChannel) {
  port.PlayNote(3, {0, 100});
  EXPECT_THAT(midi.sent, IsEmpty());
}

TEST_F(MidiPortTest, StopsTheOldNoteWithTheVelocityOfTheNew) {
  port.PlayNote(14, {40, 20});
  midi.TakeSent();
  port.PlayNote(14, {41, 30});
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x1E288Eu, 0xCEu, 0x1E299Eu));
}

TEST_F(MidiPortTest, TakesTheVelocityOfANoteThatSoundsAlreadyForItsStop) {
  port.PlayNote(14, {40, 20});
  port.PlayNote(14, {40, 30});
  midi.TakeSent();
  port.StopNote(14);
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x1E288Eu));
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
  EXPECT_EQ(port.ChannelProgram(13), 255);
  port.SetChannelProgram(0, 0);
  EXPECT_THAT(midi.sent, IsEmpty()) << "the instrument that a channel has from the beginning";
}

TEST_F(MidiPortTest, PresetsAnyInstrumentForTheNextNote) {
  port.PresetChannelProgram(13, -3);
  EXPECT_THAT(midi.sent, IsEmpty());
  EXPECT_EQ(port.ChannelProgram(13), -3);
  port.StrikeNote(13, {76, 100});
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0xFFFFFDCDu, 0x644C9Du));
}

TEST_F(MidiPortTest, RepeatsTheFirstNoteOffBeforeTheSecondOfTheEventChannels) {
  for (const int channel : {11, 12}) port.StrikeNote(channel, {60 + channel, 0});
  midi.TakeSent();
  port.StopEventChannels();
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x488Cu, 0x488Cu, 0x478Bu));
  port.StrikeNote(11, {71, 0});
  midi.TakeSent();
  port.StopEventChannels();
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x478Bu));
}

TEST_F(MidiPortTest, ClosesChannelByChannelAndOnce) {
  for (const int channel : {15, 3, 9}) port.StrikeNote(channel, {channel, 0});
  midi.TakeSent();
  port.CloseMidiOut();
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x383u, 0u, 0x989u, 0u, 0xF8Fu));
  EXPECT_THAT(midi.closed, ElementsAre(7u));
  EXPECT_FALSE(port.MouseTonesOn());
  port.CloseMidiOut();
  EXPECT_EQ(midi.closed.size(), 1u);
}

TEST_F(MidiPortTest, CountsAnUnheardNoteAsStarted) {
  midi.accepts = false;
  port.PlayNote(13, {76, 0});
  midi.TakeSent();
  port.PlayNote(13, {76, 0});
  EXPECT_THAT(midi.TakeSent(), IsEmpty()) << "though its messages were refused";
  port.StopNote(13);
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x4C8Du));
  port.CloseMidiOut();
  EXPECT_FALSE(port.MouseTonesOn()) << "though it did not close";
  port.PlayNote(13, {77, 0});
  port.SetChannelProgram(13, 9);
  EXPECT_EQ(port.ChannelProgram(13), 9);
  EXPECT_THAT(midi.sent, IsEmpty());
  EXPECT_TRUE(port.Open());
  port.PlayNote(13, {77, 0});
  EXPECT_THAT(midi.TakeSent(), IsEmpty()) << "though it was played to a closed port";
  port.StopNote(13);
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x4D8Du));
}

TEST_F(MidiPortTest, OpenedTwiceSendsToTheLaterHandle) {
  midi.handle = 8;
  EXPECT_TRUE(port.Open());
  EXPECT_EQ(midi.openings, 2);
  EXPECT_THAT(midi.closed, IsEmpty());
  port.SetChannelProgram(13, 9);
  EXPECT_EQ(midi.sentTo, 8u);
}

TEST_F(MidiPortTest, FailedOpeningKeepsAnOpenPort) {
  midi.result = 4;
  midi.handle = 0;
  EXPECT_FALSE(port.Open());
  EXPECT_TRUE(port.MouseTonesOn());
  port.SetChannelProgram(13, 9);
  EXPECT_EQ(midi.sentTo, 7u);
}

TEST(MidiPort, HasADeviceWhereTheCountIsAPositive16BitNumber) {
  WrittenMidi midi;
  MidiPort port(midi);
  for (const std::uint32_t devices : {1u, 2u, 32767u}) {
    midi.devices = devices;
    EXPECT_TRUE(port.HasDevice()) << devices;
  }
  for (const std::uint32_t devices : {0u, 32768u, 0xFFFFFFFFu}) {
    midi.devices = devices;
    EXPECT_FALSE(port.HasDevice()) << devices;
  }
}

}  // namespace
}  // namespace pointalk
