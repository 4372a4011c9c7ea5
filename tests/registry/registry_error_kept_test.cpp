// Every error of the registry layer with its number, source and text.
#include "registry/registry_error.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "tests/registry/registry_operations.h"

namespace pointalk {
namespace {

struct Raised {
  std::int32_t code;
  std::int32_t number;
  TextView source;
  TextView description;
};

TEST(RaiseRegistryError, FillsTheObject) {
  constexpr Raised kRows[] = {
      {1, -2147221503, u"Registry", u"No current Key."},
      {2, -2147221502, u"Registry", u"Invalid Key root."},
      {3, -2147221501, u"Here [Let ValueOf]", u"Type passed doesn't match Value passed."},
      {4, -2147221500, u"Here [Let ValueOf]", u"Type passed doesn't exist. Use STRING, DWORD or BINARY."},
      {0, -2147221249, u"Registry", u"Undefined error number : 9"},
      {5, -2147221249, u"Registry", u"Undefined error number : 14"},
      {-10, -2147221249, u"Registry", u"Undefined error number : -1"},
      {std::numeric_limits<std::int32_t>::max(), -2147221249, u"Registry",
       u"Undefined error number : 2147483656"},
  };
  for (const Raised& row : kRows) {
    RegistryError error{7, u"Here", u"what went wrong before"};
    RaiseRegistryError(error, row.code);
    EXPECT_EQ(error.number, row.number) << row.code;
    EXPECT_EQ(error.source, row.source) << row.code;
    EXPECT_EQ(error.description, row.description) << row.code;
  }
}

TEST(RaiseRegistryError, AddsToAnEmptySource) {
  RegistryError error;
  RaiseRegistryError(error, kTypeMismatch);
  EXPECT_EQ(error.source, u" [Let ValueOf]");
}

TEST(DescribeApiError, PutsCodesIntoWords) {
  for (const auto& [code, text] : testing::kApiErrorTexts) {
    RegistryError error{-2147221502, u"Registry", u"Invalid Key root."};
    DescribeApiError(error, code);
    EXPECT_EQ(error.number, -2147221502) << code << ": the number is not the platform's to set";
    EXPECT_EQ(error.source, u"Registry[API Call]") << code;
    EXPECT_EQ(error.description, text) << code;
  }
}

TEST(DescribeApiError, ClearsTheObjectOnSuccess) {
  RegistryError error{7, u"Here", u"what went wrong before"};
  DescribeApiError(error, 0);
  EXPECT_EQ(error, RegistryError());
}

}  // namespace
}  // namespace pointalk
