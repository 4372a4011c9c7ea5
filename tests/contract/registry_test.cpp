// The registry's functions and their codes.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/contract/registry_data.h"
#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

constexpr TextView kKey = u"Software\\PointalkContract";
constexpr std::uint32_t kRoom = 256;

class RegistryContract : public ::testing::Test {
 protected:
  RegistryContract() {
    const RegistryOpening opening = registry_.CreateKey(kCurrentUser, kKey);
    EXPECT_EQ(opening.code, 0);
    key_ = opening.key;
  }
  ~RegistryContract() override {
    EXPECT_EQ(registry_.DeleteKey(key_, u""), 0);
    EXPECT_EQ(registry_.OpenKey(kCurrentUser, kKey).code, 2);
  }

  std::unique_ptr<World> world_ = MakeWorld({});
  RegistryApi& registry_ = world_->Seam().registry;
  RegistryKey key_ = 0;
};

TEST_F(RegistryContract, AValueIsReadAsItWasWritten) {
  const auto text = Bytes({"Pointalk.exe\0", 13});
  EXPECT_EQ(registry_.SetValue(key_, u"text", 1, text), 0);
  const RegistryValueSize size = registry_.QueryValueSize(key_, u"text");
  EXPECT_EQ(size.code, 0);
  EXPECT_EQ(size.type, 1U);
  EXPECT_GE(size.bytes, 13U);
  const RegistryValueData data = registry_.QueryValue(key_, u"text", size.bytes);
  EXPECT_EQ(data.code, 0);
  EXPECT_EQ(data.type, 1U);
  EXPECT_EQ(data.data, text);
}

TEST_F(RegistryContract, NumbersAndBytesKeepTheirTypes) {
  const auto number = Bytes({"\x05\0\0\0", 4});
  const auto bytes = Bytes({"\0\xFF\x01", 3});
  EXPECT_EQ(registry_.SetValue(key_, u"number", 4, number), 0);
  EXPECT_EQ(registry_.SetValue(key_, u"bytes", 3, bytes), 0);
  EXPECT_EQ(registry_.QueryValueSize(key_, u"number").type, 4U);
  EXPECT_EQ(registry_.QueryValue(key_, u"number", 4).data, number);
  EXPECT_EQ(registry_.QueryValueSize(key_, u"bytes").bytes, 3U);
  EXPECT_EQ(registry_.QueryValue(key_, u"bytes", 3).data, bytes);
}

TEST_F(RegistryContract, AValueMayHaveNoName) {
  EXPECT_EQ(registry_.SetValue(key_, u"", 1, Bytes({"x\0", 2})), 0);
  EXPECT_EQ(registry_.QueryValue(key_, u"", 16).data, Bytes({"x\0", 2}));
  EXPECT_EQ(registry_.DeleteValue(key_, u""), 0);
}

TEST_F(RegistryContract, WhatIsNotThereIsNotFound) {
  EXPECT_EQ(registry_.QueryValueSize(key_, u"missing").code, 2);
  EXPECT_EQ(registry_.QueryValue(key_, u"missing", 4).code, 2);
  EXPECT_EQ(registry_.DeleteValue(key_, u"missing"), 2);
  EXPECT_EQ(registry_.OpenKey(key_, u"missing").code, 2);
  EXPECT_EQ(registry_.DeleteKey(key_, u"missing"), 2);
}

TEST_F(RegistryContract, ABufferTooSmallIsRefused) {
  EXPECT_EQ(registry_.SetValue(key_, u"number", 4, Bytes({"\x05\0\0\0", 4})), 0);
  EXPECT_EQ(registry_.QueryValue(key_, u"number", 2).code, 234);
}

TEST_F(RegistryContract, ADeletedValueIsGone) {
  EXPECT_EQ(registry_.SetValue(key_, u"text", 1, Bytes({"x\0", 2})), 0);
  EXPECT_EQ(registry_.DeleteValue(key_, u"text"), 0);
  EXPECT_EQ(registry_.QueryValueSize(key_, u"text").code, 2);
}

TEST_F(RegistryContract, SubKeysAndValuesAreCountedAndNamed) {
  for (const TextView name : {u"first", u"the second"}) {
    const RegistryOpening sub = registry_.CreateKey(key_, name);
    EXPECT_EQ(sub.code, 0);
    EXPECT_EQ(registry_.CloseKey(sub.key), 0);
  }
  EXPECT_EQ(registry_.SetValue(key_, u"value", 4, Bytes({"\x05\0\0\0", 4})), 0);
  const RegistryKeyInfo info = registry_.QueryKey(key_);
  EXPECT_EQ(info.code, 0);
  EXPECT_EQ(info.subKeys, 2U);
  EXPECT_EQ(info.longestSubKeyName, 10U);
  EXPECT_EQ(info.values, 1U);
  EXPECT_EQ(info.longestValueName, 5U);
  EXPECT_EQ(registry_.SubKeyName(key_, 0, kRoom).name, u"first");
  EXPECT_EQ(registry_.SubKeyName(key_, 1, kRoom).name, u"the second");
  EXPECT_EQ(registry_.SubKeyName(key_, 2, kRoom).code, 259);
  EXPECT_EQ(registry_.SubKeyName(key_, 1, 4).code, 234);
  EXPECT_EQ(registry_.SubKeyName(key_, 1, 11).name, u"the second");
  const RegistryEnumeratedValue value = registry_.ValueAt(key_, 0, 6);
  EXPECT_EQ(value.code, 0);
  EXPECT_EQ(value.name, u"value");
  EXPECT_EQ(value.type, 4U);
  EXPECT_EQ(value.data, Bytes({"\x05\0\0\0", 4}));
  EXPECT_EQ(registry_.ValueAt(key_, 0, 3).code, 234);
  EXPECT_EQ(registry_.ValueAt(key_, 1, kRoom).code, 259);
  EXPECT_EQ(registry_.DeleteKey(key_, u"first"), 0);
  EXPECT_EQ(registry_.DeleteKey(key_, u"the second"), 0);
}

TEST_F(RegistryContract, AKeyWithSubKeysIsNotRemoved) {
  const RegistryOpening sub = registry_.CreateKey(key_, u"sub");
  EXPECT_EQ(sub.code, 0);
  EXPECT_EQ(registry_.DeleteKey(kCurrentUser, kKey), 5);
  EXPECT_EQ(registry_.DeleteKey(sub.key, u""), 0);
}

// Letters that the code page lacks, with ones beside them that look alike.
TEST_F(RegistryContract, NoNameAndNoTextComesOutAsASimilarOne) {
  world_->MakeRegistryText(kKey, u"a\u2192", u"first \u0101 \u2011 \uFF21");
  world_->MakeRegistryText(kKey, u"a\u2190", u"second \u0101");
  world_->MakeRegistryText(kKey, u"\u0101", u"third");
  const Text kTexts[] = {u"first ? ? ?", u"second ?", u"third"};
  std::vector<Text> names;
  for (std::uint32_t index = 0; index < 3; ++index) {
    const RegistryEnumeratedValue value = registry_.ValueAt(key_, index, kRoom);
    EXPECT_EQ(value.code, 0);
    names.push_back(value.name);
    Text text = world_->Seam().ansi.ToText(value.data);
    ASSERT_FALSE(text.empty());
    text.pop_back();
    EXPECT_EQ(std::count(std::begin(kTexts), std::end(kTexts), text), 1) << ::testing::PrintToString(text);
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (std::vector<Text>{u"?", u"a?", u"a?"}));
  EXPECT_EQ(registry_.QueryValueSize(key_, u"a").code, 2);
  EXPECT_EQ(registry_.QueryValueSize(key_, u"a?").code, 2);
}

TEST_F(RegistryContract, ATextIsReadWithoutSimilarLetters) {
  world_->MakeRegistryText(kKey, u"text", u"\u0101\u00E9\u20AC\u2192");
  const auto narrowed = Bytes({"?\xE9\x80?\0", 5});
  EXPECT_EQ(registry_.QueryValueSize(key_, u"text").bytes, 5U);
  EXPECT_EQ(registry_.QueryValue(key_, u"text", 5).data, narrowed);
  EXPECT_EQ(registry_.QueryValue(key_, u"text", 4).code, 234);
}

TEST_F(RegistryContract, ASubKeyIsNotTakenForASimilarOne) {
  const Text kOther = Text(kKey) + u"\\\u0101";
  world_->MakeRegistryText(kOther, u"", u"");
  EXPECT_EQ(registry_.SubKeyName(key_, 0, kRoom).name, u"?");
  EXPECT_EQ(registry_.OpenKey(key_, u"a").code, 2);
  world_->RemoveRegistryKey(kOther);
}

TEST_F(RegistryContract, AValueIsReadAtTheSizeThatItHas) {
  std::vector<std::byte> large(20 * 1024 * 1024, std::byte{7});
  large.back() = std::byte{9};
  ASSERT_EQ(registry_.SetValue(key_, u"large", 3, large), 0);
  ASSERT_EQ(registry_.QueryValueSize(key_, u"large").bytes, large.size());
  const auto size = static_cast<std::uint32_t>(large.size());
  EXPECT_TRUE(registry_.QueryValue(key_, u"large", size).data == large);
  EXPECT_TRUE(registry_.ValueAt(key_, 0, kRoom).data == large);
}

TEST_F(RegistryContract, WithoutAKeyEverythingIsRefused) {
  EXPECT_EQ(registry_.CreateKey(0, u"x").code, 6);
  EXPECT_EQ(registry_.OpenKey(0, u"x").code, 6);
  EXPECT_EQ(registry_.SetValue(0, u"x", 4, Bytes({"\x05\0\0\0", 4})), 6);
  EXPECT_EQ(registry_.QueryValueSize(0, u"x").code, 6);
  EXPECT_EQ(registry_.QueryValueSize(0, u"x").bytes, 0U);
  EXPECT_EQ(registry_.QueryValue(0, u"x", 0).code, 6);
  EXPECT_EQ(registry_.DeleteValue(0, u"x"), 6);
  EXPECT_EQ(registry_.QueryKey(0).code, 6);
  EXPECT_EQ(registry_.QueryKey(0).subKeys, 0U);
  EXPECT_EQ(registry_.QueryKey(0).values, 0U);
  EXPECT_EQ(registry_.DeleteKey(0, u""), 6);
  EXPECT_EQ(registry_.CloseKey(0), 6);
}

}  // namespace
}  // namespace pointalk::contract
