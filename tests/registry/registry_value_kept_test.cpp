// What the data of the registry are as variants, which the program does not use.
#include <gtest/gtest.h>

#include "registry/registry_value.h"
#include "sim/code_page.h"
#include "tests/registry/registry_bytes.h"

namespace pointalk {
namespace {

using testing::Bytes;
using testing::BytesOf;

struct KnownValue {
  Bytes data;
  std::uint32_t type;
  Variant value;
};

TEST(VariantFromData, GoesByTheType) {
  const KnownValue rows[] = {
      {{}, 1, VariantEmpty()},
      {{}, 3, VariantEmpty()},
      {{}, 4, VariantEmpty()},
      {BytesOf({0, 255, 7}), 3, VariantArray(BytesOf({0, 255, 7}))},
      {BytesOf({0x78, 0x56, 0x34, 0x12}), 4, std::int32_t{0x12345678}},
      {BytesOf({0xFF, 0xFF, 0xFF, 0xFF}), 4, std::int32_t{-1}},
      {BytesOf({5}), 4, std::int32_t{5}},
      {BytesOf({1, 0, 0, 0, 9, 9, 9, 9}), 4, std::int32_t{1}},
      {BytesOf({'a', 0x80, 0}), 1, Text(u"a\u20AC")},
      {BytesOf({'a', 'b'}), 1, Text(u"ab")},
      {BytesOf({'a', 0, 'b', 0, 0}), 7, Text(u"a")},
      {BytesOf({'%', 'a', '%', 0}), 2, Text(u"%a%")},
      {BytesOf({0}), 1, Text()},
      {BytesOf({'8', 0, 0, 0, 0, 0, 0, 0}), 11, Text(u"8")},
      {BytesOf({'n', 0}), 0, Text(u"n")},
  };
  sim::SimAnsi ansi;
  for (const KnownValue& row : rows) {
    EXPECT_EQ(VariantFromData(row.data, row.type, ansi), row.value)
        << ::testing::PrintToString(row.data) << " of type " << row.type;
  }
}

}  // namespace
}  // namespace pointalk
