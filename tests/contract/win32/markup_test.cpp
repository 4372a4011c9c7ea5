// Texts that the newer engine would take for markup.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/contract/win32/win_world.h"

namespace pointalk::contract {
namespace {

using ::testing::ElementsAre;

class MarkupTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(voice_.Create()); }
  void TearDown() override { voice_.Release(); }

  WinWorld world_{{}};
  Sapi5Voice& voice_ = world_.platform.sapi5;
};

TEST_F(MarkupTest, ATextThatBeginsLikeMarkupIsSaidToBeNone) {
  EXPECT_TRUE(voice_.Speak(u"< Back", kSpeakAsyncPurge));
  EXPECT_TRUE(voice_.Speak(u"<silence msec=\"9\"/>", kSpeakPurgeFirst));
  EXPECT_TRUE(voice_.Speak(u"  <b>", kSpeakAsyncPurge));
  EXPECT_TRUE(voice_.Speak(u"<", kSpeakAsync));
  EXPECT_TRUE(voice_.Speak(u"<x", std::nullopt));
  EXPECT_THAT(world_.Heard(5),
              ElementsAre("sapi5 speak 19 \"< Back\"", "sapi5 speak 18 \"<silence msec=\\\"9\\\"/>\"",
                          "sapi5 speak 19 \"  <b>\"", "sapi5 speak 17 \"<\"", "sapi5 speak 16 \"<x\""));
}

TEST_F(MarkupTest, EveryOtherTextIsSpokenAsBefore) {
  EXPECT_TRUE(voice_.Speak(u" ", kSpeakAsyncPurge));
  EXPECT_TRUE(voice_.Speak(u"", kSpeakAsyncPurge));
  EXPECT_TRUE(voice_.Speak(u"a < b", kSpeakAsyncPurge));
  EXPECT_TRUE(voice_.Speak(u"> <", kSpeakPurgeFirst));
  EXPECT_TRUE(voice_.Speak(u"&lt;", std::nullopt));
  EXPECT_THAT(world_.Heard(5),
              ElementsAre("sapi5 speak 3 \" \"", "sapi5 speak 3 \"\"", "sapi5 speak 3 \"a < b\"",
                          "sapi5 speak 2 \"> <\"", "sapi5 speak 0 \"&lt;\""));
}

TEST_F(MarkupTest, WhiteSpaceOfAnyKindMayStandInFront) {
  constexpr TextView kWhite =
      u" \t\n\v\f\r\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A\u2028\u2029"
      u"\u202F\u205F\u3000";
  for (const char16_t blank : kWhite) EXPECT_TRUE(voice_.Speak(Text(1, blank) + u"<x", kSpeakAsyncPurge));
  EXPECT_TRUE(voice_.Speak(Text(kWhite) + u"<x", kSpeakPurgeFirst));
  EXPECT_TRUE(voice_.Speak(u"_<x", kSpeakAsyncPurge));
  const auto heard = world_.Heard(kWhite.size() + 2);
  ASSERT_EQ(heard.size(), kWhite.size() + 2);
  for (std::size_t i = 0; i < kWhite.size(); ++i)
    EXPECT_THAT(heard[i], ::testing::StartsWith("sapi5 speak 19 "));
  EXPECT_THAT(heard[kWhite.size()], ::testing::StartsWith("sapi5 speak 18 "));
  EXPECT_EQ(heard.back(), "sapi5 speak 3 \"_<x\"");
}

}  // namespace
}  // namespace pointalk::contract
