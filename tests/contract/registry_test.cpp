// The registry's functions and their codes.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

constexpr RegistryKey kCurrentUser = 0x80000001;
constexpr TextView kKey = u"Software\\PointalkContract";
constexpr std::uint32_t kRoom = 256;

std::vector<std::byte> Bytes(std::string_view text) {
  std::vector<std::byte> bytes(text.size());
  std::transform(text.begin(), text.end(), bytes.begin(), [](char c) { return static_cast<std::byte>(c); });
  return bytes;
}

class RegistryContract : public testing::Test {
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
  EXPECT_EQ(registry_.ValueName(key_, 0, kRoom).name, u"value");
  EXPECT_EQ(registry_.ValueName(key_, 1, kRoom).code, 259);
  EXPECT_EQ(registry_.DeleteKey(key_, u"first"), 0);
  EXPECT_EQ(registry_.DeleteKey(key_, u"the second"), 0);
}

TEST_F(RegistryContract, AKeyWithSubKeysIsNotRemoved) {
  const RegistryOpening sub = registry_.CreateKey(key_, u"sub");
  EXPECT_EQ(sub.code, 0);
  EXPECT_EQ(registry_.DeleteKey(kCurrentUser, kKey), 5);
  EXPECT_EQ(registry_.DeleteKey(sub.key, u""), 0);
}

}  // namespace
}  // namespace pointalk::contract
