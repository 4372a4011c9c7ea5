#include <gtest/gtest.h>

#include <vector>

#include "sim/registry_api.h"
#include "tests/sim/simulated.h"

namespace pointalk::sim {
namespace {

constexpr RegistryKey kLocalMachine = 0x80000002;

constexpr std::string_view kRegistry = R"({"machine": {"registry": {
    "HKEY_LOCAL_MACHINE\\Software\\Maker\\App": {"Name": "v\u0416", "Count": 4000000000, "": "default"},
    "HKEY_LOCAL_MACHINE\\Software\\Other": {},
    "HKEY_CURRENT_USER\\A": {"b": "2", "B": "3", "a": "1"}}}})";

std::vector<std::byte> Data(std::string_view text) {
  std::vector<std::byte> data;
  for (const char c : text) data.push_back(static_cast<std::byte>(c));
  data.push_back(std::byte{0});
  return data;
}

TEST(SimRegistry, FindsKeysAndValuesWithoutRegardToCase) {
  Simulated simulated(kRegistry);
  SimRegistry& registry = simulated.platform.registry;
  const RegistryOpening opening = registry.OpenKey(kLocalMachine, u"SOFTWARE\\maker\\app");
  ASSERT_EQ(opening.code, 0);
  const RegistryValueSize size = registry.QueryValueSize(opening.key, u"NAME");
  EXPECT_EQ(size.code, 0);
  EXPECT_EQ(size.type, 1u);
  EXPECT_EQ(size.bytes, 3u);
  EXPECT_EQ(registry.QueryValue(opening.key, u"name", 3).data, Data("v?"));
  EXPECT_EQ(registry.QueryValue(opening.key, u"name", 2).code, 234);
  const RegistryValueData count = registry.QueryValue(opening.key, u"Count", 4);
  EXPECT_EQ(count.type, 4u);
  EXPECT_EQ(count.data,
            (std::vector<std::byte>{std::byte{0}, std::byte{0x28}, std::byte{0x6B}, std::byte{0xEE}}));
  EXPECT_EQ(registry.QueryValueSize(opening.key, u"").bytes, 8u);
  EXPECT_EQ(registry.QueryValueSize(opening.key, u"none").code, 2);
  EXPECT_EQ(registry.CloseKey(opening.key), 0);
  EXPECT_EQ(registry.CloseKey(opening.key), 6);
  EXPECT_EQ(registry.QueryValueSize(opening.key, u"Name").code, 6);
}

TEST(SimRegistry, MakesMissingKeysSilentlyAsTheyAreSpeltAndKeepsTheNamesOfValues) {
  Simulated simulated(kRegistry);
  SimRegistry& registry = simulated.platform.registry;
  EXPECT_EQ(registry.OpenKey(kLocalMachine, u"SOFTWARE\\X\\Y").code, 2);
  const RegistryOpening made = registry.CreateKey(kLocalMachine, u"SOFTWARE\\X\\Y");
  ASSERT_EQ(made.code, 0);
  EXPECT_EQ(registry.OpenKey(kLocalMachine, u"software\\x").code, 0);
  EXPECT_EQ(registry.SetValue(made.key, u"Pointalk", 1, Data("a\xE9")), 0);
  EXPECT_EQ(registry.SetValue(made.key, u"POINTALK", 1, Data("b")), 0);
  EXPECT_EQ(
      registry.SetValue(made.key, u"n", 4, {std::byte{255}, std::byte{255}, std::byte{255}, std::byte{255}}),
      0);
  EXPECT_EQ(registry.SetValue(made.key, u"raw", 3, {std::byte{0x0A}, std::byte{0xF0}}), 0);
  EXPECT_EQ(registry.DeleteValue(made.key, u"pointalk"), 0);
  EXPECT_EQ(registry.DeleteValue(made.key, u"pointalk"), 2);
  EXPECT_EQ(simulated.transcript(),
            "registry set \"HKEY_LOCAL_MACHINE\\\\SOFTWARE\\\\X\\\\Y\" \"Pointalk\" 1 \"a\xC3\xA9\"\n"
            "registry set \"HKEY_LOCAL_MACHINE\\\\SOFTWARE\\\\X\\\\Y\" \"Pointalk\" 1 \"b\"\n"
            "registry set \"HKEY_LOCAL_MACHINE\\\\SOFTWARE\\\\X\\\\Y\" \"n\" 4 4294967295\n"
            "registry set \"HKEY_LOCAL_MACHINE\\\\SOFTWARE\\\\X\\\\Y\" \"raw\" 3 \"0af0\"\n"
            "registry delete \"HKEY_LOCAL_MACHINE\\\\SOFTWARE\\\\X\\\\Y\" \"Pointalk\"\n");
}

TEST(SimRegistry, RemovesOnlyKeysWithoutSubKeys) {
  Simulated simulated(kRegistry);
  SimRegistry& registry = simulated.platform.registry;
  const RegistryOpening software = registry.OpenKey(kLocalMachine, u"Software");
  EXPECT_EQ(registry.DeleteKey(software.key, u""), 5);
  EXPECT_EQ(registry.DeleteKey(software.key, u"Maker"), 5);
  EXPECT_EQ(registry.DeleteKey(software.key, u"none"), 2);
  EXPECT_EQ(registry.DeleteKey(software.key, u"maker\\APP"), 0);
  EXPECT_EQ(registry.DeleteKey(software.key, u"Maker"), 0);
  EXPECT_EQ(registry.DeleteKey(software.key, u"Other"), 0);
  EXPECT_EQ(registry.DeleteKey(software.key, u""), 0);
  EXPECT_EQ(registry.SetValue(software.key, u"a", 1, Data("b")), 1018);
  EXPECT_EQ(registry.DeleteKey(kLocalMachine, u""), 5);
  EXPECT_EQ(simulated.transcript(),
            "registry remove \"HKEY_LOCAL_MACHINE\\\\Software\\\\Maker\\\\App\"\n"
            "registry remove \"HKEY_LOCAL_MACHINE\\\\Software\\\\Maker\"\n"
            "registry remove \"HKEY_LOCAL_MACHINE\\\\Software\\\\Other\"\n"
            "registry remove \"HKEY_LOCAL_MACHINE\\\\Software\"\n");
}

TEST(SimRegistry, CountsAndNamesWhatAKeyHolds) {
  Simulated simulated(kRegistry);
  SimRegistry& registry = simulated.platform.registry;
  const RegistryKey software = registry.OpenKey(kLocalMachine, u"Software").key;
  const RegistryKeyInfo info = registry.QueryKey(software);
  EXPECT_EQ(info.subKeys, 2u);
  EXPECT_EQ(info.longestSubKeyName, 5u);
  EXPECT_EQ(info.values, 0u);
  EXPECT_EQ(registry.SubKeyName(software, 0, 6).name, u"Maker");
  EXPECT_EQ(registry.SubKeyName(software, 0, 5).code, 234);
  EXPECT_EQ(registry.SubKeyName(software, 1, 6).name, u"Other");
  EXPECT_EQ(registry.SubKeyName(software, 2, 6).code, 259);
  const RegistryKey values = registry.OpenKey(0x80000001, u"A").key;
  EXPECT_EQ(registry.QueryKey(values).values, 3u);
  EXPECT_EQ(registry.QueryKey(values).longestValueName, 1u);
  const RegistryEnumeratedValue first = registry.ValueAt(values, 0, 2);
  EXPECT_EQ(first.name, u"b");
  EXPECT_EQ(first.type, 1u);
  EXPECT_EQ(first.data, Data("2"));
  EXPECT_EQ(registry.ValueAt(values, 0, 1).code, 234);
  EXPECT_EQ(registry.ValueAt(values, 3, 3).code, 259);
  EXPECT_EQ(registry.QueryValue(values, u"B", 2).data, Data("3"));
  EXPECT_EQ(registry.QueryValue(values, u"b", 2).data, Data("2"));
  EXPECT_EQ(registry.QueryValue(values, u"A", 2).data, Data("1"));
}

TEST(SimRegistry, RefusesUnknownHandlesAndBadPaths) {
  Simulated simulated(kRegistry);
  SimRegistry& registry = simulated.platform.registry;
  EXPECT_EQ(registry.CreateKey(0, u"A").code, 6);
  EXPECT_EQ(registry.OpenKey(kLocalMachine, u"\\Software").code, 161);
  EXPECT_EQ(registry.OpenKey(kLocalMachine, u"Software\\").code, 0);
  EXPECT_EQ(registry.OpenKey(kLocalMachine, u"").code, 0);
  EXPECT_EQ(registry.CloseKey(kLocalMachine), 0);
  EXPECT_EQ(registry.OpenKey(kLocalMachine, u"Software").code, 0);
}

TEST(SimRegistry, DeniesEverythingWhereTheScriptSaysSo) {
  Simulated simulated(R"({"machine": {"registryDenied": true}})");
  SimRegistry& registry = simulated.platform.registry;
  EXPECT_EQ(registry.CreateKey(kLocalMachine, u"A").code, 5);
  EXPECT_EQ(registry.OpenKey(0, u"A").code, 5);
  EXPECT_EQ(registry.CloseKey(1), 5);
  EXPECT_EQ(registry.SetValue(1, u"a", 1, Data("b")), 5);
  EXPECT_EQ(registry.QueryValueSize(1, u"a").code, 5);
  EXPECT_EQ(registry.QueryValue(1, u"a", 5).code, 5);
  EXPECT_EQ(registry.DeleteValue(1, u"a"), 5);
  EXPECT_EQ(registry.QueryKey(1).code, 5);
  EXPECT_EQ(registry.SubKeyName(1, 0, 9).code, 5);
  EXPECT_EQ(registry.ValueAt(1, 0, 9).code, 5);
  EXPECT_EQ(registry.DeleteKey(1, u"a"), 5);
  EXPECT_EQ(simulated.transcript(), "");
}

TEST(SimRegistry, IsShownSortedAsItIsSpelt) {
  Simulated simulated(kRegistry);
  Transcript transcript;
  ShowRegistry(simulated.machine.setup.registry, transcript);
  EXPECT_EQ(transcript.Lines(),
            "value \"HKEY_CURRENT_USER\\\\A\" \"B\" 1 \"3\"\n"
            "value \"HKEY_CURRENT_USER\\\\A\" \"a\" 1 \"1\"\n"
            "value \"HKEY_CURRENT_USER\\\\A\" \"b\" 1 \"2\"\n"
            "value \"HKEY_LOCAL_MACHINE\\\\Software\\\\Maker\\\\App\" \"\" 1 \"default\"\n"
            "value \"HKEY_LOCAL_MACHINE\\\\Software\\\\Maker\\\\App\" \"Count\" 4 4000000000\n"
            "value \"HKEY_LOCAL_MACHINE\\\\Software\\\\Maker\\\\App\" \"Name\" 1 \"v\xD0\x96\"\n");
}

}  // namespace
}  // namespace pointalk::sim
