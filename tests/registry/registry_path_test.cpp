// Key paths taken apart.
#include "registry/registry_path.h"

#include <gtest/gtest.h>

namespace pointalk {
namespace {

struct Taken {
  TextView path;
  RegistryKey root;
  TextView subKey;
};

TEST(RegistryPath, NamesARootAndASubKey) {
  constexpr Taken kRows[] = {
      {u"HKEY_CLASSES_ROOT\\A", 0x80000000, u"A"},
      {u"HKCR\\A", 0x80000000, u"A"},
      {u"HKEY_CURRENT_USER\\A", 0x80000001, u"A"},
      {u"HKCU\\A", 0x80000001, u"A"},
      {u"HKEY_LOCAL_MACHINE\\A", 0x80000002, u"A"},
      {u"HKLM\\A", 0x80000002, u"A"},
      {u"HKEY_USERS\\A", 0x80000003, u"A"},
      {u"HKU\\A", 0x80000003, u"A"},
      {u"HKEY_DYN_DATA\\A", 0x80000006, u"A"},
      {u"HKDD\\A", 0x80000006, u"A"},
      {u"HKEY_CURRENT_CONFIG\\A", 0x80000005, u"A"},
      {u"HKCC\\A", 0x80000005, u"A"},
      {u"hklm\\Software\\X", 0x80000002, u"Software\\X"},
      {u"\\HKEY_LOCAL_MACHINE\\Software\\X", 0x80000002, u"Software\\X"},
      {u"Hkey_Users\\b\\C\\d", 0x80000003, u"b\\C\\d"},
      {u"HKLM", 0x80000002, u""},
      {u"\\HKLM", 0x80000002, u""},
      {u"HKLM\\", 0x80000002, u""},
      {u"HKLM\\A\\", 0x80000002, u"A\\"},
      {u"HKLM\\\\A", 0x80000002, u"\\A"},
  };
  for (const Taken& row : kRows) {
    RegistryError error;
    EXPECT_EQ(RootKeyFromPath(row.path, error), row.root) << ::testing::PrintToString(row.path);
    EXPECT_EQ(SubKeyFromPath(row.path), row.subKey) << ::testing::PrintToString(row.path);
    EXPECT_EQ(error, RegistryError()) << ::testing::PrintToString(row.path);
  }
}

TEST(RegistryPath, RefusesUnknownRoots) {
  constexpr Taken kRows[] = {
      {u"", 0, u""},
      {u"\\", 0, u""},
      {u"\\\\HKLM", 0, u"HKLM"},  // the second backslash ends an empty name
      {u"HK\\A", 0, u"A"},
      {u"HKLMX\\A", 0, u"A"},
      {u" HKLM\\A", 0, u"A"},
      {u"HKEY_LOCAL_MACHIN\\A", 0, u"A"},
      {u"HKLM/A", 0, u""},
      {u"HKEY_PERFORMANCE_DATA", 0, u""},
  };
  for (const Taken& row : kRows) {
    RegistryError error;
    EXPECT_EQ(RootKeyFromPath(row.path, error), 0u) << ::testing::PrintToString(row.path);
    EXPECT_EQ(SubKeyFromPath(row.path), row.subKey) << ::testing::PrintToString(row.path);
    EXPECT_EQ(error.number, -2147221502) << ::testing::PrintToString(row.path);
  }
}

}  // namespace
}  // namespace pointalk
