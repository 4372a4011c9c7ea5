// Answers of a server of SSIP, each about its own command.
#include "linux/ssip_talk.h"

#include <gtest/gtest.h>

#include <chrono>
#include <initializer_list>
#include <string>

namespace pointalk::linux {
namespace {

constexpr SsipTalk::Moment kNow{};
constexpr std::chrono::seconds kSecond{1};
constexpr SsipTalk::Moment kLater = kNow + 60 * kSecond;
constexpr char kTaken[] = "299 OK SET";
constexpr char kRefused[] = "411 ERR COULDNT SET VOICE";

void Answer(SsipTalk& talk, std::initializer_list<const char*> lines) {
  for (const char* const line : lines) talk.Take(*ParseSsipLine(line), kNow);
}

void TakeText(SsipTalk& talk, const std::string& number) {
  Answer(talk, {"230 OK RECEIVING DATA", ("225-" + number).c_str(), "225 OK MESSAGE QUEUED"});
}

void EndText(SsipTalk& talk, const std::string& number) {
  Answer(talk, {("702-" + number).c_str(), "702-1", "702 END"});
}

void BeginText(SsipTalk& talk, const std::string& number) {
  Answer(talk, {("701-" + number).c_str(), "701-1", "701 BEGIN"});
}

VoiceSettings Named(const char* name) {
  VoiceSettings settings;
  settings.name = name;
  return settings;
}

TEST(SsipTalkTest, TheSettingsAreCommandsOfTheirOwn) {
  SsipTalk talk;
  talk.Want({30, 60, "MALE1", "German"});
  EXPECT_EQ(talk.SetUp(kNow),
            "SET SELF RATE 30\r\nSET SELF VOLUME 60\r\nSET SELF VOICE_TYPE MALE1\r\n"
            "SET SELF SYNTHESIS_VOICE German\r\n");
  talk.Want({});
  EXPECT_EQ(talk.SetUp(kNow), "SET SELF RATE 0\r\n");
}

TEST(SsipTalkTest, ARefusedSettingIsNoAnswerToTheTextAfterIt) {
  SsipTalk talk;
  talk.Want(Named("Nobody"));
  talk.SetUp(kNow);
  talk.Speak("one", kNow);
  Answer(talk, {kTaken, kRefused});
  EXPECT_EQ(talk.TextsDue(), 1U);
  TakeText(talk, "21");
  EXPECT_EQ(talk.TextsDue(), 0U);
  EXPECT_TRUE(talk.IsSounding(kNow));
  EndText(talk, "21");
  EXPECT_FALSE(talk.IsSounding(kNow));
}

TEST(SsipTalkTest, AServerThatAnswersTextsOnlyIsFollowed) {
  SsipTalk talk;
  talk.AskForEvents(kNow);
  talk.Want({30, {}, {}, {}});
  talk.SetUp(kNow);
  talk.Speak("one", kNow);
  TakeText(talk, "21");
  EXPECT_EQ(talk.TextsDue(), 0U);
  EXPECT_TRUE(talk.IsSounding(kNow));
  EXPECT_EQ(talk.Settings().rate, 30);
}

TEST(SsipTalkTest, ARefusedTextIsOneAlone) {
  SsipTalk talk;
  talk.Speak("one", kNow);
  talk.Speak("two", kNow + kSecond);
  Answer(talk, {"230 OK RECEIVING DATA", "300 ERR INTERNAL"});
  EXPECT_EQ(talk.TextsDue(), 1U);
  EXPECT_FALSE(talk.IsSounding(kNow));
  TakeText(talk, "21");
  EXPECT_TRUE(talk.IsSounding(kNow));
}

TEST(SsipTalkTest, ARefusedVoiceIsTheOneBefore) {
  SsipTalk talk;
  talk.Want(Named("German"));
  talk.SetUp(kNow);
  Answer(talk, {kTaken, kTaken});
  VoiceSettings wanted = Named("Nobody");
  wanted.rate = 20;
  talk.Want(wanted);
  talk.SetUp(kNow);
  EXPECT_EQ(talk.Settings().name, "Nobody");
  Answer(talk, {kTaken, kRefused});
  EXPECT_EQ(talk.Settings().name, "German");
  EXPECT_EQ(talk.Settings().rate, 20);
}

TEST(SsipTalkTest, EverySettingCanBeRefused) {
  SsipTalk talk;
  talk.Want({30, 60, "MALE1", "Nobody"});
  talk.SetUp(kNow);
  Answer(talk, {kRefused, kRefused, kRefused, kRefused});
  EXPECT_EQ(talk.Settings(), VoiceSettings());
}

TEST(SsipTalkTest, AVoiceThatWasChosenMeanwhileStays) {
  SsipTalk talk;
  talk.Want(Named("Nobody"));
  talk.SetUp(kNow);
  talk.Want(Named("German"));
  talk.SetUp(kNow);
  Answer(talk, {kTaken, kRefused});
  EXPECT_EQ(talk.Settings().name, "German");
  Answer(talk, {kTaken, kTaken});
  EXPECT_EQ(talk.Settings().name, "German");
}

TEST(SsipTalkTest, OnANewConnectionTheServerHasNoVoiceOfOurs) {
  SsipTalk talk;
  talk.Want(Named("German"));
  talk.SetUp(kNow);
  Answer(talk, {kTaken, kTaken});
  talk.Speak("one", kNow);
  talk.Begin();
  EXPECT_EQ(talk.TextsDue(), 0U);
  talk.SetUp(kNow);
  Answer(talk, {kTaken, kRefused});
  EXPECT_EQ(talk.Settings().name, "");
}

TEST(SsipTalkTest, WhatWasSaidBeforeACutIsNotWaitedFor) {
  SsipTalk talk;
  talk.Speak("one", kNow);
  talk.Cut();
  EXPECT_EQ(talk.Command("CANCEL SELF", kNow), "CANCEL SELF\r\n");
  talk.Speak("two", kNow);
  TakeText(talk, "21");
  EXPECT_FALSE(talk.IsSounding(kNow));
  EXPECT_EQ(talk.TextsDue(), 1U);
  Answer(talk, {"210 OK CANCELED"});
  TakeText(talk, "22");
  EXPECT_TRUE(talk.IsSounding(kNow));
  Answer(talk, {"703-22", "703-1", "703 CANCELED"});
  EXPECT_FALSE(talk.IsSounding(kNow));
}

TEST(SsipTalkTest, AnswersToNobodyChangeNothing) {
  SsipTalk talk;
  Answer(talk, {"225-21", "225 OK MESSAGE QUEUED", kRefused, "702-21", "702-1", "702 END"});
  EXPECT_FALSE(talk.IsSounding(kNow));
  EXPECT_EQ(talk.TextsDue(), 0U);
}

// A connection on which every command was answered.
SsipTalk Begun() {
  SsipTalk talk;
  talk.AskForEvents(kNow);
  Answer(talk, {"220 OK NOTIFICATION SET", "220 OK NOTIFICATION SET", "220 OK NOTIFICATION SET"});
  return talk;
}

TEST(SsipTalkTest, EventsAreAskedFor) {
  EXPECT_EQ(SsipTalk().AskForEvents(kNow),
            "SET SELF NOTIFICATION BEGIN on\r\nSET SELF NOTIFICATION END on\r\n"
            "SET SELF NOTIFICATION CANCEL on\r\n");
}

TEST(SsipTalkTest, ATextThatHasBegunSoundsUntilItsEnd) {
  SsipTalk talk = Begun();
  talk.Speak("one", kNow);
  TakeText(talk, "21");
  BeginText(talk, "21");
  EXPECT_TRUE(talk.IsSounding(kLater));
  EndText(talk, "21");
  EXPECT_FALSE(talk.IsSounding(kLater));
}

TEST(SsipTalkTest, AServerThatTellsNoEventsIsSoonNotWaitedFor) {
  SsipTalk talk = Begun();
  talk.Speak("one", kNow);
  TakeText(talk, "21");
  EXPECT_TRUE(talk.IsSounding(kNow + kSecond));
  EXPECT_FALSE(talk.IsSounding(kNow + 3 * kSecond));
  talk.Cut();
  talk.Speak("two", kNow);
  TakeText(talk, "22");
  EXPECT_FALSE(talk.IsSounding(kNow));
}

TEST(SsipTalkTest, AnEndShowsThatAServerTellsEventsAfterAll) {
  SsipTalk talk = Begun();
  talk.Speak("one", kNow);
  TakeText(talk, "21");
  EXPECT_FALSE(talk.IsSounding(kLater));
  EndText(talk, "21");
  talk.Speak("two", kNow);
  TakeText(talk, "22");
  EXPECT_TRUE(talk.IsSounding(kLater));
}

TEST(SsipTalkTest, ATextThatWasCutOffBeforeItBeganProvesNoLackOfEvents) {
  SsipTalk talk = Begun();
  talk.Speak("one", kNow - 10 * kSecond);
  Answer(talk, {"230 OK RECEIVING DATA"});
  for (const char* const line : {"225-21", "225 OK MESSAGE QUEUED"})
    talk.Take(*ParseSsipLine(line), kNow - 10 * kSecond);
  talk.Cut();
  talk.Speak("two", kNow);
  TakeText(talk, "22");
  EXPECT_TRUE(talk.IsSounding(kNow + kSecond));
}

TEST(SsipTalkTest, AServerThatRefusesToTellEndsIsNotWaitedFor) {
  SsipTalk talk;
  talk.AskForEvents(kNow);
  Answer(talk, {"220 OK NOTIFICATION SET", "500 ERR INVALID COMMAND", "220 OK NOTIFICATION SET"});
  talk.Speak("one", kNow);
  TakeText(talk, "21");
  BeginText(talk, "21");
  EXPECT_FALSE(talk.IsSounding(kNow));
}

TEST(SsipTalkTest, AServerThatDoesNotTakeATextIsHung) {
  SsipTalk talk = Begun();
  talk.Speak("one", kNow);
  EXPECT_FALSE(talk.IsHung(kNow + 4 * kSecond));
  EXPECT_TRUE(talk.IsHung(kNow + 6 * kSecond));
  TakeText(talk, "21");
  EXPECT_FALSE(talk.IsHung(kLater));
}

TEST(SsipTalkTest, AServerThatStopsWhileATextSoundsIsHung) {
  SsipTalk talk = Begun();
  talk.Speak("one", kNow);
  EXPECT_EQ(talk.AskForSign(kLater), "");
  TakeText(talk, "21");
  BeginText(talk, "21");
  EXPECT_EQ(talk.AskForSign(kNow + kSecond), "");
  EXPECT_EQ(talk.AskForSign(kNow + 3 * kSecond), "SET SELF NOTIFICATION END on\r\n");
  EXPECT_EQ(talk.AskForSign(kLater), "");
  EXPECT_FALSE(talk.IsHung(kNow + 4 * kSecond));
  EXPECT_TRUE(talk.IsHung(kNow + 9 * kSecond));
  Answer(talk, {"220 OK NOTIFICATION SET"});
  EXPECT_FALSE(talk.IsHung(kNow + 9 * kSecond));
  EXPECT_TRUE(talk.IsSounding(kNow + 9 * kSecond));
}

TEST(SsipTalkTest, AServerThatAnswersTextsOnlyIsNotHung) {
  SsipTalk talk;
  talk.AskForEvents(kNow);
  talk.Speak("one", kNow);
  TakeText(talk, "21");
  BeginText(talk, "21");
  talk.AskForSign(kNow + 3 * kSecond);
  EXPECT_FALSE(talk.IsHung(kLater));
  EXPECT_TRUE(talk.IsSounding(kLater));
  talk.Speak("two", kLater);
  EXPECT_TRUE(talk.IsHung(kLater + 6 * kSecond));
}

}  // namespace
}  // namespace pointalk::linux
