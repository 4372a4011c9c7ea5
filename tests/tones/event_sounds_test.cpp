// Event sounds by name, one after the other.
#include "tones/event_sounds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/sim/simulated.h"
#include "tests/tones/written_midi.h"

namespace pointalk {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EventSoundsTest : public ::testing::Test, protected PortOnWrittenMidi {
 protected:
  EventSoundsTest() {
    EXPECT_TRUE(port.Open());
    port.SwitchMidi(true);
    delay.CalibrateDelayLoop();
  }

  sim::Simulated simulated;
  DelayLoop delay{simulated.platform.clock};
  EventSounds sounds{port, delay};
};

TEST_F(EventSoundsTest, EachHasItsNoteAboveTheRangeOfMidi) {
  constexpr struct {
    TextView name;
    std::uint32_t noteOn;
  } kRows[] = {
      {u"NewWindow", 0x7FE79C},       // 231, 127
      {u"OffVisibleArea", 0x69C89C},  // 200, 105
      {u"ListBoxHit", 0x69CC9C},      // 204, 105
      {u"OffIcon", 0x6EDF9C},         // 223, 110
      {u"NewIcon", 0x75E29C},         // 226, 117
  };
  for (const auto& row : kRows) {
    sounds.PlayEarcon(row.name);
    const auto sent = midi.TakeSent();
    ASSERT_GE(sent.size(), 2u);
    EXPECT_EQ(sent[sent.size() - 2], 0x2DCCu) << "instrument 45";
    EXPECT_EQ(sent.back(), row.noteOn);
  }
}

TEST_F(EventSoundsTest, SameEventTwiceStrikesItsNoteTwice) {
  sounds.PlayEarcon(u"NewWindow");
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0x2DCCu, 0x7FE79Cu));
  sounds.PlayEarcon(u"NewWindow");
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x7FE78Cu, 0x2DCCu, 0x7FE79Cu));
}

TEST_F(EventSoundsTest, ScrollsByEightNotesAndTheLastOnceMore) {
  const auto scroll = [](std::vector<std::uint32_t> notes) {
    std::vector<std::uint32_t> messages;
    for (std::size_t i = 0; i < notes.size(); ++i) {
      if (i > 0) messages.insert(messages.end(), {0, 0x5A008C + notes[i - 1] * 256});
      messages.insert(messages.end(), {0x1CC, 0x5A009C + notes[i] * 256});
    }
    return messages;
  };
  sounds.PlayEarcon(u"ScrollUp");
  EXPECT_EQ(midi.TakeSent(), scroll({209, 210, 211, 212, 213, 214, 215, 216, 216}));
  sounds.PlayEarcon(u"ScrollUp");
  std::vector<std::uint32_t> again = scroll({209, 210, 211, 212, 213, 214, 215, 216, 216});
  again.insert(again.begin(), {0, 0x5AD88C});
  EXPECT_EQ(midi.TakeSent(), again) << "the note left over is ended first";
  sounds.StopEarcon();
  midi.TakeSent();
  sounds.PlayEarcon(u"ScrollDown");
  EXPECT_EQ(midi.TakeSent(), scroll({216, 215, 214, 213, 212, 211, 210, 209, 209}));
}

TEST_F(EventSoundsTest, ScrollsForEightTimesTwentyMilliseconds) {
  const double before = simulated.platform.clock.SecondsSinceMidnight();
  sounds.PlayEarcon(u"ScrollUp");
  EXPECT_NEAR(simulated.platform.clock.SecondsSinceMidnight() - before, 0.160, 1e-9)
      << "by the simulated clock";
}

TEST_F(EventSoundsTest, OtherNamesStrikeChannelZero) {
  for (const TextView name : {u"newwindow", u"", u"NewWindow "}) {
    sounds.PlayEarcon(name);
    const auto sent = midi.TakeSent();
    ASSERT_GE(sent.size(), 2u);
    EXPECT_EQ(sent[sent.size() - 2], 0xC0u);
    EXPECT_EQ(sent.back(), 0x90u);
  }
}

TEST_F(EventSoundsTest, AreSilentWhileTheUserHasMidiOff) {
  sounds.PlayEarcon(u"NewWindow");
  midi.TakeSent();
  port.SwitchMidi(false);  // the port stays open
  sounds.PlayEarcon(u"NewIcon");
  EXPECT_THAT(midi.sent, IsEmpty()) << "and the note before goes on sounding";
}

TEST_F(EventSoundsTest, EndOnTheThirdTickAfterTheLast) {
  sounds.PlayEarcon(u"NewWindow");
  midi.TakeSent();
  sounds.CountTick();
  sounds.CountTick();
  EXPECT_THAT(midi.TakeSent(), IsEmpty());
  sounds.PlayEarcon(u"ListBoxHit");
  midi.TakeSent();
  sounds.CountTick();
  sounds.CountTick();
  EXPECT_THAT(midi.TakeSent(), IsEmpty()) << "counted anew";
  sounds.CountTick();
  EXPECT_THAT(midi.TakeSent(), ElementsAre(0u, 0x69CC8Cu));
  for (int tick = 0; tick < 100; ++tick) sounds.CountTick();
  EXPECT_THAT(midi.sent, IsEmpty());
}

}  // namespace
}  // namespace pointalk
