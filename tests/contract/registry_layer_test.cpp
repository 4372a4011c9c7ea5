// The registry layer over the platform's registry. Everything happens in a key of its own, which is removed
// before and after each test.
#include "registry/registry_layer.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string_view>
#include <tuple>
#include <vector>

#include "tests/contract/registry_data.h"
#include "tests/contract/world.h"
#include "text/numbers.h"

namespace pointalk::contract {
namespace {

constexpr TextView kOwnSubKey = u"Software\\PointalkContractLayer";
const Text kOwnKey = Text(u"HKCU\\").append(kOwnSubKey);

class RegistryLayerContract : public ::testing::Test {
 protected:
  void SetUp() override { RemoveOwnKey(); }
  void TearDown() override { RemoveOwnKey(); }

  void RemoveOwnKey() {
    layer_.DeleteRegistry(kOwnKey);
    ASSERT_FALSE(HasKey(kOwnSubKey));
  }

  bool HasKey(TextView subKey) {
    const RegistryOpening opening = registry_.OpenKey(kCurrentUser, subKey);
    if (opening.code != 0) return false;
    EXPECT_EQ(registry_.CloseKey(opening.key), 0);
    return true;
  }

  // The type and the data of a value of the own key as they lie there.
  RegistryValueData Stored(TextView name) {
    const RegistryKey key = registry_.OpenKey(kCurrentUser, kOwnSubKey).key;
    const RegistryValueSize size = registry_.QueryValueSize(key, name);
    EXPECT_EQ(size.code, 0);
    RegistryValueData data = registry_.QueryValue(key, name, size.bytes);
    EXPECT_EQ(registry_.CloseKey(key), 0);
    return data;
  }

  void Store(TextView name, std::uint32_t type, std::string_view data) {
    const RegistryKey key = registry_.CreateKey(kCurrentUser, kOwnSubKey).key;
    EXPECT_EQ(registry_.SetValue(key, name, type, Bytes(data)), 0);
    EXPECT_EQ(registry_.CloseKey(key), 0);
  }

  std::unique_ptr<World> world_ = MakeWorld({});
  RegistryApi& registry_ = world_->Seam().registry;
  RegistryLayer layer_{registry_, world_->Seam().ansi};
};

TEST_F(RegistryLayerContract, ReadsWhatItWrote) {
  VariantArray large(100000);
  for (std::size_t i = 0; i < large.size(); ++i) large[i] = static_cast<std::byte>(i % 256);
  const Variant values[] = {Text(u"Pointalk.exe"), Text(u"caf\u00E9 \u20AC"), Text(), std::int32_t{70000},
                            std::int32_t{-1},      Bytes({"\0\xFF\0", 3}),    large};
  for (const Variant& value : values) {
    layer_.WriteRegistry(kOwnKey, u"a value", value);
    EXPECT_EQ(layer_.Error(), RegistryError()) << value.index();
    EXPECT_EQ(layer_.ReadRegistry(u"\\hkey_current_user\\SOFTWARE\\pointalkcontractlayer", u"A VALUE"), value)
        << value.index();
    EXPECT_EQ(layer_.Error(), RegistryError()) << value.index();
  }
}

TEST_F(RegistryLayerContract, StoresTypesAndDataAsThePlatformHasThem) {
  layer_.WriteRegistry(kOwnKey, u"text", Text(u"5\u00E9"));
  layer_.WriteRegistry(kOwnKey, u"number", std::int16_t{5});
  layer_.WriteRegistry(kOwnKey, u"yes", true);
  layer_.WriteRegistry(kOwnKey, u"byte", std::uint8_t{200});
  layer_.WriteRegistry(kOwnKey, u"amount", VariantCurrency{-15000});
  EXPECT_EQ(Stored(u"text").type, kStringType);
  EXPECT_EQ(Stored(u"text").data, Bytes({"5\xE9\0", 3}));
  EXPECT_EQ(Stored(u"number").type, kNumberType);
  EXPECT_EQ(Stored(u"number").data, Bytes({"\5\0\0\0", 4}));
  EXPECT_EQ(Stored(u"yes").data, Bytes("\xFF\xFF\xFF\xFF"));
  EXPECT_EQ(Stored(u"byte").type, kBinaryType);
  EXPECT_EQ(Stored(u"byte").data, Bytes("\xC8"));
  EXPECT_EQ(Stored(u"amount").data, Bytes({"-1.5\0", 5}));
}

TEST_F(RegistryLayerContract, ReadsTheTypesThatItDoesNotWrite) {
  Store(u"expandable", 2, {"%a%\0", 4});
  Store(u"several", 7, {"one\0two\0\0", 9});
  Store(u"64 bits", 11, {"8\0\0\0\0\0\0\0", 8});
  Store(u"hollow", kBinaryType, {});
  EXPECT_EQ(layer_.ReadRegistry(kOwnKey, u"expandable"), Variant(Text(u"%a%")));
  EXPECT_EQ(layer_.ReadRegistry(kOwnKey, u"several"), Variant(Text(u"one")));
  EXPECT_EQ(layer_.ReadRegistry(kOwnKey, u"64 bits"), Variant(Text(u"8")));
  EXPECT_EQ(layer_.ReadRegistry(kOwnKey, u"hollow"), Variant());
  EXPECT_EQ(layer_.Error(), RegistryError());
}

TEST_F(RegistryLayerContract, TakesAnEmptyNameForTheDefaultValue) {
  layer_.WriteRegistry(kOwnKey, u"", Text(u"the default"));
  EXPECT_EQ(layer_.ReadRegistry(kOwnKey), Variant(Text(u"the default")));
  const auto values = layer_.EnumerateRegistryValues(kOwnKey);
  ASSERT_EQ(values.size(), 1u);
  EXPECT_EQ(values[0].name, u"");
  layer_.DeleteRegistry(kOwnKey, u"");
  EXPECT_EQ(layer_.Error(), RegistryError());
  EXPECT_TRUE(layer_.EnumerateRegistryValues(kOwnKey).empty());
  EXPECT_TRUE(HasKey(kOwnSubKey));
}

TEST_F(RegistryLayerContract, TellsWhatDoesNotExist) {
  const RegistryError missing{0, u"Registry[API Call]", u"Key/Value does not exist."};
  const RegistryError refused{0, u"Registry[API Call]", u"Undefined key error code!"};
  layer_.ClearError();
  EXPECT_EQ(layer_.ReadRegistry(kOwnKey, u"x"), Variant());
  EXPECT_EQ(layer_.Error(), missing);
  layer_.DeleteRegistry(kOwnKey, u"x");
  EXPECT_EQ(layer_.Error(), refused);
  layer_.DeleteRegistry(kOwnKey);
  EXPECT_EQ(layer_.Error(), refused);
  EXPECT_TRUE(layer_.EnumerateRegistryValues(kOwnKey).empty());
  EXPECT_EQ(layer_.Error(), refused);
  layer_.WriteRegistry(kOwnKey, u"y", std::int32_t{1});
  EXPECT_EQ(layer_.ReadRegistry(kOwnKey, u"x"), Variant());
  EXPECT_EQ(layer_.Error(), RegistryError());
  layer_.DeleteRegistry(kOwnKey, u"x");
  EXPECT_EQ(layer_.Error(), missing);
}

TEST_F(RegistryLayerContract, HasThePlatformRefuseAKeyWithoutARoot) {
  const RegistryError refused{-2147221502, u"Registry[API Call]", u"Undefined key error code!"};
  layer_.WriteRegistry(u"HKXX\\Software\\PointalkContractLayer", u"x", Text(u"y"));
  EXPECT_EQ(layer_.Error(), refused);
  EXPECT_EQ(layer_.ReadRegistry(u"HKXX\\Software"), Variant());
  EXPECT_EQ(layer_.Error(), refused);
}

TEST_F(RegistryLayerContract, OpensARootItself) {
  layer_.WriteRegistry(kOwnKey, u"x", Text(u"y"));
  for (const TextView root : {u"HKCU", u"\\HKEY_CURRENT_USER"}) {
    std::ignore = layer_.EnumerateRegistryValues(root);
    EXPECT_EQ(layer_.Error(), RegistryError()) << ::testing::PrintToString(root);
  }
  EXPECT_EQ(layer_.ReadRegistry(kOwnKey, u"x"), Variant(Text(u"y")));
}

TEST_F(RegistryLayerContract, RemovesATreeAndNothingBesideIt) {
  for (const TextView path :
       {u"\\Tree", u"\\Tree\\b\\a", u"\\Tree\\b\\c d", u"\\Tree\\\u00E9", u"\\Tree 2"}) {
    layer_.WriteRegistry(Text(kOwnKey).append(path), u"x", Text(u"y"));
    ASSERT_EQ(layer_.Error(), RegistryError());
  }
  layer_.DeleteRegistry(kOwnKey + u"\\Tree");
  EXPECT_EQ(layer_.Error(), RegistryError());
  EXPECT_FALSE(HasKey(Text(kOwnSubKey) + u"\\Tree"));
  EXPECT_TRUE(HasKey(Text(kOwnSubKey) + u"\\Tree 2"));
}

TEST_F(RegistryLayerContract, RemovesATreeOfAThousandKeys) {
  for (int branch = 0; branch < 10; ++branch) {
    const RegistryKey key =
        registry_.CreateKey(kCurrentUser, Text(kOwnSubKey) + u"\\" + WholeNumberText(branch)).key;
    for (int leaf = 0; leaf < 99; ++leaf) {
      const RegistryOpening opening = registry_.CreateKey(key, WholeNumberText(leaf));
      ASSERT_EQ(opening.code, 0);
      EXPECT_EQ(registry_.CloseKey(opening.key), 0);
    }
    EXPECT_EQ(registry_.CloseKey(key), 0);
  }
  layer_.DeleteRegistry(kOwnKey);
  EXPECT_EQ(layer_.Error(), RegistryError());
  EXPECT_FALSE(HasKey(kOwnSubKey));
}

// Its deepest path is longer than the platform may take.
TEST_F(RegistryLayerContract, RemovesATreeOfFiveHundredLevels) {
  RegistryKey key = registry_.CreateKey(kCurrentUser, kOwnSubKey).key;
  for (int level = 1; level < 500; ++level) {
    const RegistryOpening opening = registry_.CreateKey(key, WholeNumberText(level % 10));
    ASSERT_EQ(opening.code, 0) << level;
    EXPECT_EQ(registry_.CloseKey(key), 0);
    key = opening.key;
  }
  EXPECT_EQ(registry_.CloseKey(key), 0);
  layer_.DeleteRegistry(kOwnKey);
  EXPECT_EQ(layer_.Error(), RegistryError());
  EXPECT_FALSE(HasKey(kOwnSubKey));
}

TEST_F(RegistryLayerContract, EnumeratesEveryValueInThePlatformsOrder) {
  const Text longName(255, u'n');
  layer_.WriteRegistry(kOwnKey, u"zero", Text(u"0"));
  layer_.WriteRegistry(kOwnKey, longName, std::int32_t{1});
  layer_.WriteRegistry(kOwnKey, u"A\u00E9", Bytes("2"));
  const auto values = layer_.EnumerateRegistryValues(kOwnKey);
  EXPECT_EQ(layer_.Error(), RegistryError());
  ASSERT_EQ(values.size(), 3u);

  const RegistryKey key = registry_.OpenKey(kCurrentUser, kOwnSubKey).key;
  std::set<Text> names;
  for (std::uint32_t index = 0; index < 3; ++index) {
    EXPECT_EQ(values[index].name, registry_.ValueAt(key, index, 1024).name);
    EXPECT_EQ(values[index].value, layer_.ReadRegistry(kOwnKey, values[index].name));
    EXPECT_EQ(values[index].type, Stored(values[index].name).type);
    names.insert(values[index].name);
  }
  EXPECT_EQ(names, (std::set<Text>{u"zero", longName, u"A\u00E9"}));
  EXPECT_EQ(registry_.CloseKey(key), 0);
}

TEST_F(RegistryLayerContract, EnumeratesValuesOfOneNameEachWithItsOwnData) {
  world_->MakeRegistryText(kOwnSubKey, u"a\u2192", u"right");
  world_->MakeRegistryText(kOwnSubKey, u"a\u2190", u"left \u0101");
  layer_.WriteRegistry(kOwnKey, u"a?", Text(u"asks"));
  std::set<Text> texts;
  for (const NamedRegistryValue& value : layer_.EnumerateRegistryValues(kOwnKey)) {
    EXPECT_EQ(value.name, u"a?");
    EXPECT_EQ(value.type, kStringType);
    texts.insert(VariantText(value.value));
  }
  EXPECT_EQ(texts, (std::set<Text>{u"right", u"left ?", u"asks"}));
}

TEST_F(RegistryLayerContract, ReadsAValueOfAnySize) {
  VariantArray large(20 * 1024 * 1024, std::byte{7});
  large.back() = std::byte{9};
  layer_.WriteRegistry(kOwnKey, u"large", large);
  EXPECT_TRUE(layer_.ReadRegistry(kOwnKey, u"large") == Variant(large));
  const auto values = layer_.EnumerateRegistryValues(kOwnKey);
  ASSERT_EQ(values.size(), 1u);
  EXPECT_TRUE(values[0].value == Variant(large));
}

// It cannot be named in 8-bit text, and a similar name is another key's.
TEST_F(RegistryLayerContract, LeavesATreeWithAKeyThatTheCodePageCannotName) {
  const Text tree = Text(kOwnSubKey) + u"\\Tree";
  world_->MakeRegistryText(tree + u"\\\u0101", u"", u"");
  layer_.DeleteRegistry(kOwnKey + u"\\Tree");
  EXPECT_EQ(layer_.Error(), (RegistryError{0, u"Registry[API Call]", u"Access to Registry Denied."}));
  EXPECT_TRUE(HasKey(tree));
  world_->RemoveRegistryKey(tree + u"\\\u0101");
}

TEST_F(RegistryLayerContract, KnowsThatAnOpenKeyIsGone) {
  layer_.WriteRegistry(kOwnKey, u"x", Text(u"y"));
  const RegistryKey key = registry_.OpenKey(kCurrentUser, kOwnSubKey).key;
  layer_.DeleteRegistry(kOwnKey);
  EXPECT_EQ(layer_.Error(), RegistryError());
  EXPECT_EQ(registry_.SetValue(key, u"x", kStringType, Bytes({"y\0", 2})), 1018);
  EXPECT_EQ(registry_.CloseKey(key), 0);
}

}  // namespace
}  // namespace pointalk::contract
