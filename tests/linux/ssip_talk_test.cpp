// Answers of a server of SSIP, each about its own command.
#include "linux/ssip_talk.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace pointalk::linux {
namespace {

constexpr SsipTalk::Moment kNow{};
constexpr char kTaken[] = "299 OK SET";
constexpr char kRefused[] = "411 ERR COULDNT SET VOICE";

void Answer(SsipTalk& talk, std::initializer_list<const char*> lines) {
  for (const char* const line : lines) talk.Take(*ParseSsipLine(line));
}

void TakeText(SsipTalk& talk, const std::string& number) {
  Answer(talk, {"230 OK RECEIVING DATA", ("225-" + number).c_str(), "225 OK MESSAGE QUEUED"});
}

void EndText(SsipTalk& talk, const std::string& number) {
  Answer(talk, {("702-" + number).c_str(), "702-1", "702 END"});
}

VoiceSettings Named(const char* name) {
  VoiceSettings settings;
  settings.name = name;
  return settings;
}

TEST(SsipTalkTest, TheSettingsAreCommandsOfTheirOwn) {
  SsipTalk talk;
  talk.Want({30, 60, "MALE1", "German"});
  EXPECT_EQ(talk.SetUp(),
            "SET SELF RATE 30\r\nSET SELF VOLUME 60\r\nSET SELF VOICE_TYPE MALE1\r\n"
            "SET SELF SYNTHESIS_VOICE German\r\n");
  talk.Want({});
  EXPECT_EQ(talk.SetUp(), "SET SELF RATE 0\r\n");
}

TEST(SsipTalkTest, ARefusedSettingIsNoAnswerToTheTextAfterIt) {
  SsipTalk talk;
  talk.Want(Named("Nobody"));
  talk.SetUp();
  talk.Speak("one", kNow);
  Answer(talk, {kTaken, kRefused});
  EXPECT_EQ(talk.TextsDue(), 1U);
  TakeText(talk, "21");
  EXPECT_EQ(talk.TextsDue(), 0U);
  EXPECT_TRUE(talk.IsSounding());
  EndText(talk, "21");
  EXPECT_FALSE(talk.IsSounding());
}

TEST(SsipTalkTest, ARefusedTextIsOneAlone) {
  SsipTalk talk;
  talk.Speak("one", kNow);
  talk.Speak("two", kNow + std::chrono::seconds(1));
  Answer(talk, {"230 OK RECEIVING DATA", "300 ERR INTERNAL"});
  EXPECT_EQ(talk.TextsDue(), 1U);
  EXPECT_EQ(talk.OldestTextDue(), kNow + std::chrono::seconds(1));
  EXPECT_FALSE(talk.IsSounding());
  TakeText(talk, "21");
  EXPECT_EQ(talk.OldestTextDue(), std::nullopt);
  EXPECT_TRUE(talk.IsSounding());
}

TEST(SsipTalkTest, ARefusedVoiceIsTheOneBefore) {
  SsipTalk talk;
  talk.Want(Named("German"));
  talk.SetUp();
  Answer(talk, {kTaken, kTaken});
  VoiceSettings wanted = Named("Nobody");
  wanted.rate = 20;
  talk.Want(wanted);
  talk.SetUp();
  EXPECT_EQ(talk.Settings().name, "Nobody");
  Answer(talk, {kTaken, kRefused});
  EXPECT_EQ(talk.Settings().name, "German");
  EXPECT_EQ(talk.Settings().rate, 20);
}

TEST(SsipTalkTest, EverySettingCanBeRefused) {
  SsipTalk talk;
  talk.Want({30, 60, "MALE1", "Nobody"});
  talk.SetUp();
  Answer(talk, {kRefused, kRefused, kRefused, kRefused});
  EXPECT_EQ(talk.Settings(), VoiceSettings());
}

TEST(SsipTalkTest, AVoiceThatWasChosenMeanwhileStays) {
  SsipTalk talk;
  talk.Want(Named("Nobody"));
  talk.SetUp();
  talk.Want(Named("German"));
  talk.SetUp();
  Answer(talk, {kTaken, kRefused});
  EXPECT_EQ(talk.Settings().name, "German");
  Answer(talk, {kTaken, kTaken});
  EXPECT_EQ(talk.Settings().name, "German");
}

TEST(SsipTalkTest, OnANewConnectionTheServerHasNoVoiceOfOurs) {
  SsipTalk talk;
  talk.Want(Named("German"));
  talk.SetUp();
  Answer(talk, {kTaken, kTaken});
  talk.Speak("one", kNow);
  talk.Begin();
  EXPECT_EQ(talk.TextsDue(), 0U);
  talk.SetUp();
  Answer(talk, {kTaken, kRefused});
  EXPECT_EQ(talk.Settings().name, "");
}

TEST(SsipTalkTest, WhatWasSaidBeforeACutIsNotWaitedFor) {
  SsipTalk talk;
  talk.Speak("one", kNow);
  talk.Cut();
  EXPECT_EQ(talk.Command("CANCEL SELF"), "CANCEL SELF\r\n");
  talk.Speak("two", kNow);
  TakeText(talk, "21");
  EXPECT_FALSE(talk.IsSounding());
  EXPECT_EQ(talk.TextsDue(), 1U);
  Answer(talk, {"210 OK CANCELED"});
  TakeText(talk, "22");
  EXPECT_TRUE(talk.IsSounding());
  Answer(talk, {"703-22", "703-1", "703 CANCELED"});
  EXPECT_FALSE(talk.IsSounding());
}

TEST(SsipTalkTest, AnswersToNobodyChangeNothing) {
  SsipTalk talk;
  Answer(talk, {"225-21", "225 OK MESSAGE QUEUED", kRefused, "702-21", "702-1", "702 END"});
  EXPECT_FALSE(talk.IsSounding());
  EXPECT_EQ(talk.TextsDue(), 0U);
}

}  // namespace
}  // namespace pointalk::linux
