// What is kept of the key paths although the program does not use it.
#include <gtest/gtest.h>

#include "registry/registry_path.h"

namespace pointalk {
namespace {

TEST(RegistryPath, EndsInOneBackslash) {
  EXPECT_EQ(EnsureTrailingBackslash(u"HKLM\\A"), u"HKLM\\A\\");
  EXPECT_EQ(EnsureTrailingBackslash(u"HKLM\\A\\"), u"HKLM\\A\\");
  EXPECT_EQ(EnsureTrailingBackslash(u""), u"\\");
}

}  // namespace
}  // namespace pointalk
