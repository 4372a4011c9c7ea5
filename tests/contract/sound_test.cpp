// The MIDI port, the system's sounds, and both generations of speech engines.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SoundContract : public ::testing::Test {
 protected:
  std::unique_ptr<World> world_ = MakeWorld({});
  Platform seam_ = world_->Seam();
};

TEST_F(SoundContract, ThePortTakesMessagesWhileItIsOpen) {
  EXPECT_EQ(seam_.midi.DeviceCount(), 1U);
  const MidiOpening opening = seam_.midi.OpenMapper();
  ASSERT_EQ(opening.result, 0U);
  EXPECT_THAT(world_->Heard(1), ElementsAre("midi open 0"));
  EXPECT_TRUE(seam_.midi.Send(opening.handle, 0x7F3C90));
  EXPECT_TRUE(seam_.midi.Send(opening.handle, 0));
  EXPECT_TRUE(seam_.midi.Close(opening.handle));
  EXPECT_FALSE(seam_.midi.Send(opening.handle, 0x7F3C90));
  EXPECT_FALSE(seam_.midi.Send(0, 0x7F3C90)) << "no port";
  EXPECT_THAT(world_->Heard(4), ElementsAre("midi open 0", "midi 0x7f3c90", "midi 0x0", "midi close"));
}

TEST_F(SoundContract, ASoundIsPlayedByItsName) {
  EXPECT_TRUE(seam_.midi.PlayNamedSound(u"1", 1, 11));
  EXPECT_THAT(world_->Heard(1), ElementsAre("sound \"1\" 1 11"));
}

TEST_F(SoundContract, EveryMemberOfAnEngineFailsBeforeItIsCreated) {
  EXPECT_EQ(seam_.sapi5.Rate(), std::nullopt);
  EXPECT_FALSE(seam_.sapi5.SetRate(2));
  EXPECT_FALSE(seam_.sapi5.SetVolume(50));
  EXPECT_EQ(seam_.sapi5.VoiceCount(), std::nullopt);
  EXPECT_EQ(seam_.sapi5.VoiceDescription(0), std::nullopt);
  EXPECT_FALSE(seam_.sapi5.SetVoice(0));
  EXPECT_FALSE(seam_.sapi5.Speak(u"x", kSpeakAsync));
  EXPECT_EQ(seam_.sapi4.Speed(), std::nullopt);
  EXPECT_FALSE(seam_.sapi4.SetSpeed(100));
  EXPECT_FALSE(seam_.sapi4.SetVolumeLeft(50));
  EXPECT_FALSE(seam_.sapi4.SetVolumeRight(50));
  EXPECT_EQ(seam_.sapi4.Find(u"Mfg=Microsoft"), std::nullopt);
  EXPECT_FALSE(seam_.sapi4.Select(1));
  EXPECT_FALSE(seam_.sapi4.AudioReset());
  EXPECT_FALSE(seam_.sapi4.Speak(u"x"));
  EXPECT_FALSE(seam_.sapi4.SetLastWordPosition(0));
  EXPECT_EQ(seam_.sapi4.LastWordPosition(), std::nullopt);
  EXPECT_THAT(world_->Heard(0), IsEmpty()) << "the last question is answered when all before it is over";
}

TEST_F(SoundContract, ASapi5VoiceHasVoicesARateAndAVolume) {
  ASSERT_TRUE(seam_.sapi5.Create());
  EXPECT_EQ(seam_.sapi5.Rate(), 0);
  EXPECT_EQ(seam_.sapi5.VoiceCount(), 3);
  EXPECT_EQ(seam_.sapi5.VoiceDescription(0), u"Microsoft Mary");
  EXPECT_EQ(seam_.sapi5.VoiceDescription(2), u"Microsoft Sam");
  EXPECT_EQ(seam_.sapi5.VoiceDescription(3), std::nullopt);
  EXPECT_EQ(seam_.sapi5.VoiceDescription(-1), std::nullopt);
  EXPECT_TRUE(seam_.sapi5.SetVoice(1));
  EXPECT_FALSE(seam_.sapi5.SetVoice(3));
  EXPECT_TRUE(seam_.sapi5.SetRate(3));
  EXPECT_TRUE(seam_.sapi5.SetRate(2.5));
  EXPECT_EQ(seam_.sapi5.Rate(), 2);
  EXPECT_TRUE(seam_.sapi5.SetVolume(80));
  EXPECT_THAT(world_->Heard(4),
              ElementsAre("sapi5 voice 1", "sapi5 rate 3", "sapi5 rate 2", "sapi5 volume 80"));
  seam_.sapi5.Release();
  EXPECT_EQ(seam_.sapi5.Rate(), std::nullopt);
}

TEST_F(SoundContract, ASapi5VoiceSpeaksWithFlagsOrWithNone) {
  ASSERT_TRUE(seam_.sapi5.Create());
  EXPECT_TRUE(seam_.sapi5.Speak(u" ", kSpeakAsyncPurge));
  EXPECT_TRUE(seam_.sapi5.Speak(u"\u4E2D \"quoted\"", kSpeakAsyncPurge));
  EXPECT_TRUE(seam_.sapi5.Speak(u"ok", kSpeakPurgeFirst));
  EXPECT_TRUE(seam_.sapi5.Speak(u"yes", std::nullopt));
  EXPECT_THAT(world_->Heard(4),
              ElementsAre("sapi5 speak 3 \" \"", "sapi5 speak 3 \"\xE4\xB8\xAD \\\"quoted\\\"\"",
                          "sapi5 speak 2 \"ok\"", "sapi5 speak 0 \"yes\""));
  seam_.sapi5.Release();
}

TEST_F(SoundContract, ASapi4ControlHasASpeedVolumesAndVoices) {
  ASSERT_TRUE(seam_.sapi4.Create());
  EXPECT_EQ(seam_.sapi4.Speed(), 150);
  EXPECT_TRUE(seam_.sapi4.SetSpeed(240));
  EXPECT_EQ(seam_.sapi4.Speed(), 240);
  EXPECT_TRUE(seam_.sapi4.SetVolumeLeft(70));
  EXPECT_TRUE(seam_.sapi4.SetVolumeRight(60));
  const auto voice = seam_.sapi4.Find(u"Mfg=Microsoft;Gender=0");
  ASSERT_TRUE(voice);
  EXPECT_TRUE(seam_.sapi4.Select(*voice));
  EXPECT_EQ(seam_.sapi4.Find(u"Mfg=Nobody"), std::nullopt);
  const std::string number = std::to_string(static_cast<int>(*voice));
  EXPECT_THAT(world_->Heard(6), ElementsAre("sapi4 speed 240", "sapi4 left 70", "sapi4 right 60",
                                            "sapi4 find \"Mfg=Microsoft;Gender=0\"", "sapi4 select " + number,
                                            "sapi4 find \"Mfg=Nobody\""));
  seam_.sapi4.Release();
  EXPECT_EQ(seam_.sapi4.Speed(), std::nullopt);
}

TEST_F(SoundContract, ASapi4ControlSpeaksAndStops) {
  ASSERT_TRUE(seam_.sapi4.Create());
  EXPECT_EQ(seam_.sapi4.LastWordPosition(), 0);
  EXPECT_TRUE(seam_.sapi4.AudioReset());
  EXPECT_TRUE(seam_.sapi4.Speak(u"hello"));
  EXPECT_TRUE(seam_.sapi4.SetLastWordPosition(0));
  EXPECT_TRUE(seam_.sapi4.AudioReset());
  EXPECT_THAT(world_->Heard(4),
              ElementsAre("sapi4 reset", "sapi4 speak \"hello\"", "sapi4 position 0", "sapi4 reset"));
  seam_.sapi4.Release();
}

}  // namespace
}  // namespace pointalk::contract
