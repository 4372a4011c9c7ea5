// What is asked when the port cannot be had, in the states that no rehearsal brings about.
#include "settings/midi_switch.h"

#include <gtest/gtest.h>

#include "tests/speech/speaking.h"
#include "tests/tones/written_midi.h"

namespace pointalk {
namespace {

class MidiSwitchTest : public ::testing::Test, protected Speaking, protected PortOnWrittenMidi {
 protected:
  SpokenDialogs spokenDialogs{platform.dialogs, platform.panel, clicks, speaker};
  MidiSwitch midiSwitch{platform.panel, platform.system, spokenDialogs, port};
};

TEST_F(MidiSwitchTest, YesToAPortThatIsRefusedKeepsAnOpenOne) {
  midiSwitch.OpenMidiOut();
  midi.result = 4;
  midi.handle = 0;
  simulated.machine.answers.emplace_back(kAnswerYes);
  midiSwitch.OpenMidiOut();
  EXPECT_TRUE(port.MouseTonesOn());
  port.SetChannelProgram(13, 9);
  EXPECT_EQ(midi.sentTo, 7u);
  EXPECT_TRUE(simulated.machine.answers.empty());
}

TEST_F(MidiSwitchTest, WithoutADeviceThePortIsTriedOnlyAfterTheQuestion) {
  midi.devices = 0;
  simulated.machine.answers.emplace_back(kAnswerYes);
  midiSwitch.OpenMidiOut();
  EXPECT_EQ(midi.openings, 0);
  midiSwitch.OpenMidiOut();
  EXPECT_EQ(midi.openings, 1);
  EXPECT_TRUE(port.MouseTonesOn());
}

TEST_F(MidiSwitchTest, AnyOtherAnswerEndsTheProgram) {
  midi.devices = 0;
  simulated.machine.answers.emplace_back(kAnswerNo);
  EXPECT_THROW(midiSwitch.OpenMidiOut(), sim::ProgramGone);
}

}  // namespace
}  // namespace pointalk
