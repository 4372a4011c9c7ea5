// Which calls each operation of the registry layer makes, whatever they answer, and what the error object
// says afterwards.
#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include "registry/registry_layer.h"
#include "sim/code_page.h"
#include "tests/registry/recorded_registry.h"

namespace pointalk {
namespace {

using testing::RecordedRegistry;
using Codes = RecordedRegistry::Codes;
using Operation = std::function<void(RegistryLayer&)>;

constexpr std::int32_t kNoRoot = -2147221502;
constexpr std::int32_t kMisfit = -2147221501;
constexpr std::int32_t kNoSuchType = -2147221500;
constexpr TextView kApi = u"Registry[API Call]";
constexpr TextView kMissing = u"Key/Value does not exist.";
constexpr TextView kDenied = u"Access to Registry Denied.";
constexpr TextView kUndefined = u"Undefined key error code!";
constexpr TextView kMisfitText = u"Type passed doesn't match Value passed.";
constexpr TextView kNoSuchTypeText = u"Type passed doesn't exist. Use STRING, DWORD or BINARY.";

RegistryEnumeratedValue Named(TextView name, std::uint32_t type, std::initializer_list<int> bytes) {
  RegistryEnumeratedValue value{0, Text(name), type, {}};
  for (const int byte : bytes) value.data.push_back(static_cast<std::byte>(byte));
  return value;
}

// A layer over a key with a text, a number and two sub-keys.
struct RecordedLayer {
  explicit RecordedLayer(const Codes& codes = {}) {
    registry.codes = codes;
    registry.subKeys = {"one", "two"};
    registry.values = {Named(u"text", 1, {'h', 'i', 0}), Named(u"number", 4, {7, 1, 0, 0})};
  }

  RecordedRegistry registry;
  sim::SimAnsi ansi;
  RegistryLayer layer{registry, ansi};
};

const Operation kWrite = [](RegistryLayer& layer) { layer.WriteRegistry(u"HKCU\\A\\B", u"n", Text(u"5")); };
const Operation kRead = [](RegistryLayer& layer) { std::ignore = layer.ReadRegistry(u"HKLM\\A", u"n"); };
const Operation kDeleteValue = [](RegistryLayer& layer) { layer.DeleteRegistry(u"HKLM\\A", u"n"); };
const Operation kDeleteTree = [](RegistryLayer& layer) { layer.DeleteRegistry(u"HKLM\\A"); };
const Operation kEnumerate = [](RegistryLayer& layer) {
  std::ignore = layer.EnumerateRegistryValues(u"HKLM\\A");
};
const Operation kWriteMisfit = [](RegistryLayer& layer) {
  layer.WriteRegistry(u"HKCU\\A", u"n", Text(u"5"), kNumberType);
};
const Operation kWriteNoSuchType = [](RegistryLayer& layer) {
  layer.WriteRegistry(u"HKCU\\A", u"n", Text(u"5"), 2);
};

struct Row {
  const char* what;
  Operation run;
  Codes codes;
  const char* calls;
  RegistryError error;
};

std::vector<Row> WritingAndReading() {
  return {
      {"write", kWrite, {}, R"(create root 1 'A\B'; set 1 'n' 1 53.0; close 1)", {}},
      {"write into a key that does not open",
       kWrite,
       {.create = 5},
       R"(create root 1 'A\B'; set 0 'n' 1 53.0; close 0)",
       {0, Text(kApi), Text(kUndefined)}},
      {"write what is refused",
       kWrite,
       {.set = 5},
       R"(create root 1 'A\B'; set 1 'n' 1 53.0; close 1)",
       {0, Text(kApi), Text(kDenied)}},
      {"write, and the key does not close",
       kWrite,
       {.close = 5},
       R"(create root 1 'A\B'; set 1 'n' 1 53.0; close 1)",
       {}},
      {"write below no root",
       [](RegistryLayer& layer) { layer.WriteRegistry(u"HKXX\\A", u"n", std::int16_t{258}); },
       {},
       "create 0 'A'; set 0 'n' 4 2.1.0.0; close 0",
       {kNoRoot, Text(kApi), Text(kUndefined)}},
      {"write what does not fit",
       kWriteMisfit,
       {},
       "create root 1 'A'; close 1",
       {kMisfit, u" [Let ValueOf]", Text(kMisfitText)}},
      {"write what does not fit into a key that does not open",
       kWriteMisfit,
       {.create = 5},
       "create root 1 'A'; close 0",
       {kMisfit, u"Registry[API Call] [Let ValueOf]", Text(kMisfitText)}},
      {"write as an unknown type",
       kWriteNoSuchType,
       {.create = 2},
       "create root 1 'A'; close 0",
       {kNoSuchType, u"Registry[API Call] [Let ValueOf]", Text(kNoSuchTypeText)}},
      {"read", kRead, {}, "open root 2 'A'; size 1 'n'; data 1 'n' 3; close 1", {}},
      {"read from a key that does not open",
       kRead,
       {.open = 2},
       "open root 2 'A'; size 0 'n'; data 0 'n' 0; close 0",
       {0, Text(kApi), Text(kMissing)}},
      {"read a value that is not there",
       kRead,
       {.size = 2, .data = 2},
       "open root 2 'A'; size 1 'n'; data 1 'n' 0; close 1",
       {}},
      {"read a value that has grown meanwhile",
       kRead,
       {.data = 234},
       "open root 2 'A'; size 1 'n'; data 1 'n' 3; close 1",
       {}},
      {"read below no root",
       [](RegistryLayer& layer) { std::ignore = layer.ReadRegistry(u"HKXX\\A"); },
       {},
       "open 0 'A'; size 0 ''; data 0 '' 0; close 0",
       {kNoRoot, Text(kApi), Text(kUndefined)}},
  };
}

std::vector<Row> DeletingAndEnumerating() {
  return {
      {"delete a value", kDeleteValue, {}, "open root 2 'A'; delete value 1 'n'; close 1", {}},
      {"delete a value of a key that does not open",
       kDeleteValue,
       {.open = 2},
       "open root 2 'A'; delete value 0 'n'; close 0",
       {0, Text(kApi), Text(kUndefined)}},
      {"delete a value that is not there",
       kDeleteValue,
       {.deleteValue = 2},
       "open root 2 'A'; delete value 1 'n'; close 1",
       {0, Text(kApi), Text(kMissing)}},
      {"delete a tree",
       kDeleteTree,
       {},
       "open root 2 'A'; info 1; name 1 0 21; name 1 1 21; "
       "open 1 'one'; info 2; delete key 2 ''; close 2; "
       "open 1 'two'; info 3; delete key 3 ''; close 3; delete key 1 ''; close 1",
       {}},
      {"delete a tree that does not open",
       kDeleteTree,
       {.open = 5},
       "open root 2 'A'; info 0; delete key 0 ''; close 0",
       {0, Text(kApi), Text(kUndefined)}},
      {"delete a tree whose sub-keys do not open",
       kDeleteTree,
       {.subOpen = 2, .deleteKey = 5},
       "open root 2 'A'; info 1; name 1 0 21; name 1 1 21; open 1 'one'; info 0; delete key 0 ''; close 0; "
       "open 1 'two'; info 0; delete key 0 ''; close 0; delete key 1 ''; close 1",
       {0, Text(kApi), Text(kDenied)}},
      {"delete a tree whose sub-keys only stay",
       kDeleteTree,
       {.subDelete = 5},
       "open root 2 'A'; info 1; name 1 0 21; name 1 1 21; "
       "open 1 'one'; info 2; delete key 2 ''; close 2; "
       "open 1 'two'; info 3; delete key 3 ''; close 3; delete key 1 ''; close 1",
       {}},
      {"delete a tree that does not tell of its sub-keys",
       kDeleteTree,
       {.info = 5},
       "open root 2 'A'; info 1; delete key 1 ''; close 1",
       {}},
      {"delete a tree with a sub-key that is not named",
       kDeleteTree,
       {.name = 5},
       "open root 2 'A'; info 1; name 1 0 21; name 1 1 21; "
       "open 1 'two'; info 2; delete key 2 ''; close 2; delete key 1 ''; close 1",
       {}},
      {"enumerate", kEnumerate, {}, "open root 2 'A'; info 1; value 1 0 31; value 1 1 31; close 1", {}},
      {"enumerate a key that does not open",
       kEnumerate,
       {.open = 2},
       "open root 2 'A'; info 0; close 0",
       {0, Text(kApi), Text(kUndefined)}},
      {"enumerate a key that tells nothing",
       kEnumerate,
       {.info = 5},
       "open root 2 'A'; info 1; close 1",
       {0, Text(kApi), Text(kDenied)}},
      {"enumerate with a value that is not given",
       kEnumerate,
       {.name = 5},
       "open root 2 'A'; info 1; value 1 0 31; value 1 1 31; close 1",
       {}},
  };
}

void Check(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    RecordedLayer on(row.codes);
    row.run(on.layer);
    EXPECT_EQ(on.registry.calls, row.calls) << row.what;
    EXPECT_EQ(on.layer.Error(), row.error)
        << row.what << ": " << ::testing::PrintToString(on.layer.Error().description);
  }
}

TEST(RegistryCalls, OfWritingAndReading) { Check(WritingAndReading()); }

TEST(RegistryCalls, OfDeletingAndEnumerating) { Check(DeletingAndEnumerating()); }

TEST(RegistryCalls, GiveWhatWasReadAndNoMore) {
  EXPECT_EQ(RecordedLayer().layer.ReadRegistry(u"HKLM\\A", u"n"), Variant(Text(u"hi")));
  for (const Codes& codes : {Codes{.open = 2}, Codes{.size = 2, .data = 2}, Codes{.data = 234}}) {
    EXPECT_EQ(RecordedLayer(codes).layer.ReadRegistry(u"HKLM\\A", u"n"), Variant());
  }
  RecordedLayer hollow;
  hollow.registry.values[0].data.clear();
  EXPECT_EQ(hollow.layer.ReadRegistry(u"HKLM\\A", u"n"), Variant());
}

TEST(RegistryCalls, EnumerateValuesOfOneNameWithTheirOwnData) {
  RecordedLayer on;
  on.registry.values = {Named(u"a?", 1, {'x', 0}), Named(u"a?", 4, {2, 0, 0, 0}), Named(u"a?", 3, {3})};
  const auto values = on.layer.EnumerateRegistryValues(u"HKLM\\A");
  ASSERT_EQ(values.size(), 3u);
  for (const NamedRegistryValue& value : values) EXPECT_EQ(value.name, u"a?");
  EXPECT_EQ(values[0].type, 1u);
  EXPECT_EQ(values[0].value, Variant(Text(u"x")));
  EXPECT_EQ(values[1].type, 4u);
  EXPECT_EQ(values[1].value, Variant(std::int32_t{2}));
  EXPECT_EQ(values[2].type, 3u);
  EXPECT_EQ(values[2].value, Variant(VariantArray{std::byte{3}}));
}

// Every code in every place whose code is described.
TEST(RegistryCalls, AreDescribedByTheirCodes) {
  const std::pair<std::int32_t, TextView> kTexts[] = {
      {2, kMissing},
      {5, kDenied},
      {14, u"Out of memory."},
      {87, u"Invalid Parameter."},
      {1009, u"Corrupt Registry Database!"},
      {1010, u"Key name is bad."},
      {1011, u"Cannot Open Key."},
      {1012, u"Cannot Read Key."},
      {1013, u"Cannot Write Key."},
      {3, kUndefined},
      {6, kUndefined},
      {234, kUndefined},
      {1008, kUndefined},
      {1014, kUndefined},
  };
  for (const auto& [code, text] : kTexts) {
    const std::pair<Operation, Codes> kPlaces[] = {{kWrite, {.set = code}},
                                                   {kRead, {.open = code}},
                                                   {kDeleteValue, {.deleteValue = code}},
                                                   {kDeleteTree, {.deleteKey = code}},
                                                   {kEnumerate, {.info = code}}};
    for (const auto& [run, codes] : kPlaces) {
      RecordedLayer on(codes);
      run(on.layer);
      EXPECT_EQ(on.layer.Error(), (RegistryError{0, Text(kApi), Text(text)})) << code;
    }
  }
}

// The number of one of the layer's own errors outlives every operation that meets only failures.
TEST(RegistryCalls, LeaveAnEarlierErrorUntilOneSucceeds) {
  const Operation kOperations[] = {kWrite, kRead, kDeleteValue, kDeleteTree, kEnumerate};
  for (std::size_t i = 0; i < std::size(kOperations); ++i) {
    RecordedLayer on({.create = 5, .open = 2});
    std::ignore = on.layer.ReadRegistry(u"HKXX");
    kOperations[i](on.layer);
    const TextView told = i == 1 ? kMissing : kUndefined;
    EXPECT_EQ(on.layer.Error(), (RegistryError{kNoRoot, Text(kApi), Text(told)})) << i;
    on.registry.codes = {};
    kOperations[i](on.layer);
    EXPECT_EQ(on.layer.Error(), RegistryError()) << i;
  }
}

TEST(RegistryCalls, AddToTheSourceOfAnEarlierError) {
  RecordedLayer on({.create = 5});
  kWriteMisfit(on.layer);
  kWriteNoSuchType(on.layer);
  EXPECT_EQ(on.layer.Error(),
            (RegistryError{kNoSuchType, u"Registry[API Call] [Let ValueOf]", Text(kNoSuchTypeText)}));
}

}  // namespace
}  // namespace pointalk
