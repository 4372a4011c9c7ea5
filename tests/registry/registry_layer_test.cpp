// The registry layer on a simulated registry.
#include <gtest/gtest.h>

#include "tests/registry/simulated_layer.h"

namespace pointalk {
namespace {

using testing::Layer;

TEST(RegistryLayer, ChoosesTheTypeByTheVariant) {
  Layer on("{}");
  on.layer.WriteRegistry(u"HKCU\\K", u"n", std::int16_t{5});
  on.layer.WriteRegistry(u"HKCU\\K", u"s", Text(u"5"));
  on.layer.WriteRegistry(u"HKCU\\K", u"b", std::uint8_t{5});
  on.layer.WriteRegistry(u"HKCU\\K", u"", true);
  on.layer.WriteRegistry(u"HKCU\\K", u"as told", std::int16_t{5}, kStringType);
  EXPECT_EQ(on.simulated.transcript(), R"(registry set "HKEY_CURRENT_USER\\K" "n" 4 5
registry set "HKEY_CURRENT_USER\\K" "s" 1 "5"
registry set "HKEY_CURRENT_USER\\K" "b" 3 "05"
registry set "HKEY_CURRENT_USER\\K" "" 4 4294967295
registry set "HKEY_CURRENT_USER\\K" "as told" 1 "5"
)");
}

TEST(RegistryLayer, DoesNotWriteWhatDoesNotFit) {
  Layer on("{}");
  on.layer.WriteRegistry(u"HKCU\\K", u"n", Text(u"5"), kNumberType);
  EXPECT_EQ(on.layer.Error(),
            (RegistryError{-2147221501, u" [Let ValueOf]", u"Type passed doesn't match Value passed."}));
  on.layer.WriteRegistry(u"HKCU\\K", u"n", Text(u"5"), 2);
  EXPECT_EQ(on.layer.Error(), (RegistryError{-2147221500, u" [Let ValueOf]",
                                             u"Type passed doesn't exist. Use STRING, DWORD or BINARY."}));
  EXPECT_EQ(on.simulated.transcript(), "");
  EXPECT_TRUE(on.HasKey(u"HKEY_CURRENT_USER\\K"));
}

TEST(RegistryLayer, GoesOnWithoutAKeyOrARoot) {
  Layer on;
  on.layer.DeleteRegistry(u"HKCU\\None", u"x");
  on.layer.WriteRegistry(u"HKXX\\App", u"x", Text(u"y"));
  on.layer.DeleteRegistry(u"HKXX\\App", u"x");
  EXPECT_EQ(on.simulated.transcript(), "");
  on.layer.WriteRegistry(u"HKCU\\App", u"x", Text(u"y"));
  EXPECT_EQ(on.simulated.transcript(), R"(registry set "HKEY_CURRENT_USER\\App" "x" 1 "y"
)");
}

TEST(RegistryLayer, DeletesOneValue) {
  Layer on;
  on.layer.DeleteRegistry(u"HKCU\\App", u"name");
  EXPECT_EQ(on.layer.Error(), RegistryError());
  on.layer.DeleteRegistry(u"HKCU\\App", u"");
  EXPECT_EQ(on.layer.Error(), RegistryError());
  EXPECT_EQ(on.simulated.transcript(), R"(registry delete "HKEY_CURRENT_USER\\App" "Name"
registry delete "HKEY_CURRENT_USER\\App" ""
)");
  on.layer.DeleteRegistry(u"HKCU\\App", u"name");
  EXPECT_EQ(on.Description(), u"Key/Value does not exist.");
  EXPECT_TRUE(on.HasKey(u"HKEY_CURRENT_USER\\App\\Sub\\Deep"));
}

TEST(RegistryLayer, OutlivesTheFailureOfAnyCall) {
  testing::ExpectToOutliveFailures([](RegistryLayer& layer) {
    layer.WriteRegistry(u"HKCU\\App", u"new", std::int32_t{1});
    layer.DeleteRegistry(u"HKCU\\App", u"new");
  });
}

}  // namespace
}  // namespace pointalk
