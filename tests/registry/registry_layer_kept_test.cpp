// What the registry layer can do although the program does not use it: reading, deleting trees, enumerating,
// and telling what went wrong.
#include <gtest/gtest.h>

#include <tuple>

#include "tests/registry/simulated_layer.h"
#include "text/numbers.h"

namespace pointalk {
namespace {

using testing::Layer;

TEST(KeptRegistryLayer, ReadsWhatItHasWritten) {
  const Variant values[] = {Text(u"5"),       Text(u"caf\u00E9 \u20AC"),
                            Text(),           std::int32_t{5},
                            std::int32_t{-1}, VariantArray{std::byte{0}, std::byte{255}}};
  Layer on("{}");
  for (const Variant& value : values) {
    on.layer.WriteRegistry(u"HKCU\\New\\Key", u"x", value);
    EXPECT_EQ(on.layer.Error(), RegistryError());
    EXPECT_EQ(on.layer.ReadRegistry(u"\\hkey_current_user\\new\\key", u"X"), value) << value.index();
    EXPECT_EQ(on.layer.Error(), RegistryError());
  }
}

TEST(KeptRegistryLayer, ReadsTheDefaultValueWithoutAName) {
  Layer on;
  EXPECT_EQ(on.layer.ReadRegistry(u"HKCU\\App"), Variant(Text(u"default")));
  EXPECT_EQ(on.layer.ReadRegistry(u"HKCU\\App", u""), Variant(Text(u"default")));
  EXPECT_EQ(on.layer.ReadRegistry(u"HKCU\\App", u"count"), Variant(static_cast<std::int32_t>(4000000000u)));
  EXPECT_EQ(on.layer.ReadRegistry(u"HKCU\\App\\Sub"), Variant());
  EXPECT_EQ(on.layer.Error(), RegistryError());
}

TEST(KeptRegistryLayer, ReadsNothingWhereThereIsNoData) {
  Layer on;
  for (const std::uint32_t type : {1u, 3u, 4u}) {
    auto* const key = on.simulated.machine.setup.registry.Find(u"HKEY_CURRENT_USER\\App\\Sub");
    key->Make(u"hollow").type = type;
    EXPECT_EQ(on.layer.ReadRegistry(u"HKCU\\App\\Sub", u"hollow"), Variant()) << type;
    EXPECT_EQ(on.layer.Error(), RegistryError()) << type;
  }
}

TEST(KeptRegistryLayer, DeletesATreeFromItsDepthUp) {
  for (const TextView path : {u"HKCU\\App", u"HKCU\\App\\"}) {
    Layer on;
    on.layer.DeleteRegistry(path);
    EXPECT_EQ(on.layer.Error(), RegistryError());
    EXPECT_EQ(on.simulated.transcript(), R"(registry remove "HKEY_CURRENT_USER\\App\\Sub\\Deep"
registry remove "HKEY_CURRENT_USER\\App\\Sub"
registry remove "HKEY_CURRENT_USER\\App\\Sub 2"
registry remove "HKEY_CURRENT_USER\\App"
)") << ::testing::PrintToString(path);
    EXPECT_TRUE(on.HasKey(u"HKEY_CURRENT_USER\\Apple"));
  }
}

TEST(KeptRegistryLayer, TriesEveryKeyOnceWhereNoneMayBeDeleted) {
  Layer on;
  on.failures.failingName = "RegistryApi::DeleteKey";
  on.layer.DeleteRegistry(u"HKCU\\App");
  EXPECT_EQ(on.Description(), u"Access to Registry Denied.");
  // Open, ask, delete and close each of the four keys, and name three.
  EXPECT_EQ(on.failures.calls, 4 * 4 + 3);
  EXPECT_TRUE(on.HasKey(u"HKEY_CURRENT_USER\\App\\Sub\\Deep"));
}

TEST(KeptRegistryLayer, DeletesATreeOfAThousandKeys) {
  Layer on("{}");
  for (int i = 0; i < 10; ++i) {
    const Text branch = u"HKEY_CURRENT_USER\\Wide\\" + WholeNumberText(i) + u"\\";
    for (int j = 0; j < 100; ++j) on.simulated.machine.setup.registry.Make(branch + WholeNumberText(j));
  }
  on.layer.DeleteRegistry(u"HKCU\\Wide");
  EXPECT_EQ(on.layer.Error(), RegistryError());
  EXPECT_TRUE(on.simulated.machine.setup.registry.SubKeyNames(u"HKEY_CURRENT_USER").empty());
  EXPECT_LE(on.tally.mostOpen, 3u);
}

TEST(KeptRegistryLayer, DeletesATreeOfFiveHundredLevels) {
  Layer on("{}");
  Text path = u"HKEY_CURRENT_USER\\Deep";
  for (int level = 0; level < 500; ++level) path += u"\\" + WholeNumberText(level % 10);
  on.simulated.machine.setup.registry.Make(path);
  on.layer.DeleteRegistry(u"HKCU\\Deep");
  EXPECT_EQ(on.layer.Error(), RegistryError());
  EXPECT_FALSE(on.HasKey(u"HKEY_CURRENT_USER\\Deep"));
}

TEST(KeptRegistryLayer, DoesNotFollowLinksForEver) {
  Layer on("{}");
  on.simulated.machine.setup.registry.Make(u"HKEY_CURRENT_USER\\Round\\Again 1");
  on.simulated.machine.setup.registry.Make(u"HKEY_CURRENT_USER\\Round\\Again 2");
  on.tally.link = u"Again";
  on.layer.DeleteRegistry(u"HKCU\\Round");
  EXPECT_EQ(on.Description(), u"Access to Registry Denied.");
  EXPECT_EQ(on.tally.mostOpen, 512u);
  // Open, ask, name both, delete and close each key once.
  EXPECT_EQ(on.failures.calls, 512 * 6);
  EXPECT_TRUE(on.HasKey(u"HKEY_CURRENT_USER\\Round"));
}

TEST(KeptRegistryLayer, LeavesAKeyWhoseNameIsLost) {
  Layer on;
  on.tally.loseNames = true;
  on.layer.DeleteRegistry(u"HKCU\\App");
  EXPECT_EQ(on.Description(), u"Access to Registry Denied.");
  EXPECT_EQ(on.tally.mostOpen, 1u);
  EXPECT_TRUE(on.HasKey(u"HKEY_CURRENT_USER\\App\\Sub\\Deep"));
}

TEST(KeptRegistryLayer, EnumeratesValuesInThePlatformsOrder) {
  Layer on("{}");
  on.layer.WriteRegistry(u"HKCU\\K", u"z", Text(u"last first"));
  on.layer.WriteRegistry(u"HKCU\\K", u"number", std::int32_t{70000});
  on.layer.WriteRegistry(u"HKCU\\K", u"a name of many more letters", VariantArray{std::byte{7}});
  on.layer.WriteRegistry(u"HKCU\\K", u"", Text(u"\u00E9"));
  const auto values = on.layer.EnumerateRegistryValues(u"HKCU\\K");
  EXPECT_EQ(on.layer.Error(), RegistryError());
  ASSERT_EQ(values.size(), 4u);
  EXPECT_EQ(values[0].name, u"z");
  EXPECT_EQ(values[0].type, 1u);
  EXPECT_EQ(values[0].value, Variant(Text(u"last first")));
  EXPECT_EQ(values[1].name, u"number");
  EXPECT_EQ(values[1].type, 4u);
  EXPECT_EQ(values[1].value, Variant(std::int32_t{70000}));
  EXPECT_EQ(values[2].name, u"a name of many more letters");
  EXPECT_EQ(values[2].type, 3u);
  EXPECT_EQ(values[2].value, Variant(VariantArray{std::byte{7}}));
  EXPECT_EQ(values[3].name, u"");
  EXPECT_EQ(values[3].value, Variant(Text(u"\u00E9")));
  EXPECT_TRUE(on.layer.EnumerateRegistryValues(u"HKCU").empty());
  EXPECT_EQ(on.layer.Error(), RegistryError());
}

TEST(KeptRegistryLayer, EnumeratesWithoutTheValueThatCannotBeRead) {
  Layer on;
  on.failures.failingName = "RegistryApi::ValueAt";
  EXPECT_TRUE(on.layer.EnumerateRegistryValues(u"HKCU\\App").empty());
  EXPECT_EQ(on.layer.Error(), RegistryError());
  on.failures.failingName = "RegistryApi::QueryKey";
  EXPECT_TRUE(on.layer.EnumerateRegistryValues(u"HKCU\\App").empty());
  EXPECT_NE(on.layer.Error(), RegistryError());
}

TEST(KeptRegistryLayer, TellsThatThereIsNoKey) {
  Layer on;
  EXPECT_EQ(on.layer.ReadRegistry(u"HKCU\\None", u"x"), Variant());
  EXPECT_EQ(on.layer.Error(), (RegistryError{0, u"Registry[API Call]", u"Key/Value does not exist."}));
  on.layer.DeleteRegistry(u"HKCU\\None", u"x");
  EXPECT_EQ(on.Description(), u"Undefined key error code!");
  on.layer.DeleteRegistry(u"HKCU\\None");
  EXPECT_EQ(on.Description(), u"Undefined key error code!");
  EXPECT_TRUE(on.layer.EnumerateRegistryValues(u"HKCU\\None").empty());
  EXPECT_EQ(on.Description(), u"Undefined key error code!");
  EXPECT_EQ(on.simulated.transcript(), "");
}

TEST(KeptRegistryLayer, TellsThatThereIsNoRoot) {
  const RegistryError refused{-2147221502, u"Registry[API Call]", u"Undefined key error code!"};
  Layer on;
  on.layer.WriteRegistry(u"HKXX\\App", u"x", Text(u"y"));
  EXPECT_EQ(on.layer.Error(), refused);
  EXPECT_EQ(on.layer.ReadRegistry(u"HKXX\\App"), Variant());
  EXPECT_EQ(on.layer.Error(), refused);
  on.layer.DeleteRegistry(u"HKXX\\App", u"x");
  EXPECT_EQ(on.layer.Error(), refused);
  on.layer.DeleteRegistry(u"HKXX\\App");
  EXPECT_EQ(on.layer.Error(), refused);
  EXPECT_TRUE(on.layer.EnumerateRegistryValues(u"HKXX\\App").empty());
  EXPECT_EQ(on.layer.Error(), refused);
  on.layer.ClearError();
  EXPECT_EQ(on.layer.Error(), RegistryError());
}

TEST(KeptRegistryLayer, ForgetsAnEarlierErrorWithTheNextSuccess) {
  Layer on;
  on.layer.WriteRegistry(u"HKXX", u"x", Text(u"y"));
  EXPECT_EQ(on.layer.ReadRegistry(u"HKCU\\None"), Variant());
  EXPECT_EQ(on.layer.Error(),
            (RegistryError{-2147221502, u"Registry[API Call]", u"Key/Value does not exist."}));
  on.layer.DeleteRegistry(u"HKCU\\App", u"Name");
  EXPECT_EQ(on.layer.Error(), RegistryError());
  const auto fail = [&] { std::ignore = on.layer.ReadRegistry(u"HKXX"); };
  fail();
  on.layer.WriteRegistry(u"HKCU\\App", u"x", Text(u"y"));
  EXPECT_EQ(on.layer.Error(), RegistryError());
  fail();
  EXPECT_FALSE(on.layer.EnumerateRegistryValues(u"HKCU\\App").empty());
  EXPECT_EQ(on.layer.Error(), RegistryError());
}

TEST(KeptRegistryLayer, TellsThatAccessIsDenied) {
  Layer on(R"({"machine": {"registryDenied": true}})");
  const RegistryError denied{0, u"Registry[API Call]", u"Access to Registry Denied."};
  on.layer.WriteRegistry(u"HKLM\\A", u"x", Text(u"y"));
  EXPECT_EQ(on.layer.Error(), denied);
  EXPECT_EQ(on.layer.ReadRegistry(u"HKLM\\A", u"x"), Variant());
  EXPECT_EQ(on.layer.Error(), denied);
  on.layer.DeleteRegistry(u"HKLM\\A", u"x");
  EXPECT_EQ(on.layer.Error(), denied);
  on.layer.DeleteRegistry(u"HKLM\\A");
  EXPECT_EQ(on.layer.Error(), denied);
}

TEST(KeptRegistryLayer, OutlivesTheFailureOfAnyCall) {
  testing::ExpectToOutliveFailures([](RegistryLayer& layer) {
    std::ignore = layer.ReadRegistry(u"HKCU\\App", u"Name");
    std::ignore = layer.EnumerateRegistryValues(u"HKCU\\App");
    layer.DeleteRegistry(u"HKCU\\App");
  });
}

}  // namespace
}  // namespace pointalk
