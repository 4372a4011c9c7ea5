// What the registry layer can do although the program does not use it: the calls of reading, deleting trees
// and enumerating, and what the error object says after every operation.
#include <gtest/gtest.h>

#include <tuple>
#include <utility>
#include <vector>

#include "tests/registry/registry_operations.h"

namespace pointalk {
namespace {

using testing::DeleteValue;
using testing::kApi;
using testing::kDenied;
using testing::kMissing;
using testing::kNoRoot;
using testing::kNoSuchType;
using testing::kNoSuchTypeText;
using testing::kUndefined;
using testing::Named;
using testing::Operation;
using testing::OperationRow;
using testing::RecordedLayer;
using testing::Write;
using testing::WriteMisfit;
using testing::WriteNoSuchType;
using Codes = testing::RecordedRegistry::Codes;

void Read(RegistryLayer& layer) { std::ignore = layer.ReadRegistry(u"HKLM\\A", u"n"); }
void DeleteTree(RegistryLayer& layer) { layer.DeleteRegistry(u"HKLM\\A"); }
void Enumerate(RegistryLayer& layer) { std::ignore = layer.EnumerateRegistryValues(u"HKLM\\A"); }

std::vector<OperationRow> Reading() {
  return {
      {"read", Read, {}, "open root 2 'A'; size 1 'n'; data 1 'n' 3; close 1", {}},
      {"read from a key that does not open",
       Read,
       {.open = 2},
       "open root 2 'A'; size 0 'n'; data 0 'n' 0; close 0",
       {0, Text(kApi), Text(kMissing)}},
      {"read a value that is not there",
       Read,
       {.size = 2, .data = 2},
       "open root 2 'A'; size 1 'n'; data 1 'n' 0; close 1",
       {}},
      {"read a value that has grown meanwhile",
       Read,
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

std::vector<OperationRow> DeletingTreesAndEnumerating() {
  return {
      {"delete a tree",
       DeleteTree,
       {},
       "open root 2 'A'; info 1; name 1 0 21; name 1 1 21; "
       "open 1 'one'; info 2; delete key 2 ''; close 2; "
       "open 1 'two'; info 3; delete key 3 ''; close 3; delete key 1 ''; close 1",
       {}},
      {"delete a tree that does not open",
       DeleteTree,
       {.open = 5},
       "open root 2 'A'; info 0; delete key 0 ''; close 0",
       {0, Text(kApi), Text(kUndefined)}},
      {"delete a tree whose sub-keys do not open",
       DeleteTree,
       {.subOpen = 2, .deleteKey = 5},
       "open root 2 'A'; info 1; name 1 0 21; name 1 1 21; open 1 'one'; info 0; delete key 0 ''; close 0; "
       "open 1 'two'; info 0; delete key 0 ''; close 0; delete key 1 ''; close 1",
       {0, Text(kApi), Text(kDenied)}},
      {"delete a tree whose sub-keys only stay",
       DeleteTree,
       {.subDelete = 5},
       "open root 2 'A'; info 1; name 1 0 21; name 1 1 21; "
       "open 1 'one'; info 2; delete key 2 ''; close 2; "
       "open 1 'two'; info 3; delete key 3 ''; close 3; delete key 1 ''; close 1",
       {}},
      {"delete a tree that does not tell of its sub-keys",
       DeleteTree,
       {.info = 5},
       "open root 2 'A'; info 1; delete key 1 ''; close 1",
       {}},
      {"delete a tree with a sub-key that is not named",
       DeleteTree,
       {.name = 5},
       "open root 2 'A'; info 1; name 1 0 21; name 1 1 21; "
       "open 1 'two'; info 2; delete key 2 ''; close 2; delete key 1 ''; close 1",
       {}},
      {"enumerate", Enumerate, {}, "open root 2 'A'; info 1; value 1 0 31; value 1 1 31; close 1", {}},
      {"enumerate a key that does not open",
       Enumerate,
       {.open = 2},
       "open root 2 'A'; info 0; close 0",
       {0, Text(kApi), Text(kUndefined)}},
      {"enumerate a key that refuses to be asked",
       Enumerate,
       {.info = 5},
       "open root 2 'A'; info 1; close 1",
       {0, Text(kApi), Text(kDenied)}},
      {"enumerate with a value that is not given",
       Enumerate,
       {.name = 5},
       "open root 2 'A'; info 1; value 1 0 31; value 1 1 31; close 1",
       {}},
  };
}

void Check(const std::vector<OperationRow>& rows) {
  for (const OperationRow& row : rows) {
    RecordedLayer on(row.codes);
    row.run(on.layer);
    EXPECT_EQ(on.registry.calls, row.calls) << row.what;
    EXPECT_EQ(on.layer.Error(), row.error)
        << row.what << ": " << ::testing::PrintToString(on.layer.Error().description);
  }
}

TEST(KeptRegistryCalls, OfReading) { Check(Reading()); }

TEST(KeptRegistryCalls, OfDeletingTreesAndEnumerating) { Check(DeletingTreesAndEnumerating()); }

TEST(KeptRegistryCalls, TellTheErrorsOfWritingAndDeletingAValue) { Check(testing::UsedOperations()); }

TEST(KeptRegistryCalls, GiveWhatWasReadAndNoMore) {
  EXPECT_EQ(RecordedLayer().layer.ReadRegistry(u"HKLM\\A", u"n"), Variant(Text(u"hi")));
  for (const Codes& codes : {Codes{.open = 2}, Codes{.size = 2, .data = 2}, Codes{.data = 234}}) {
    EXPECT_EQ(RecordedLayer(codes).layer.ReadRegistry(u"HKLM\\A", u"n"), Variant());
  }
  RecordedLayer hollow;
  hollow.registry.values[0].data.clear();
  EXPECT_EQ(hollow.layer.ReadRegistry(u"HKLM\\A", u"n"), Variant());
}

TEST(KeptRegistryCalls, EnumerateValuesOfOneNameWithTheirOwnData) {
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
TEST(KeptRegistryCalls, AreDescribedByTheirCodes) {
  for (const auto& [code, text] : testing::kApiErrorTexts) {
    const std::pair<Operation, Codes> kPlaces[] = {{Write, {.set = code}},
                                                   {Read, {.open = code}},
                                                   {DeleteValue, {.deleteValue = code}},
                                                   {DeleteTree, {.deleteKey = code}},
                                                   {Enumerate, {.info = code}}};
    for (const auto& [run, codes] : kPlaces) {
      RecordedLayer on(codes);
      run(on.layer);
      EXPECT_EQ(on.layer.Error(), (RegistryError{0, Text(kApi), Text(text)})) << code;
    }
  }
}

// The number of one of the layer's own errors outlives every operation that meets only failures.
TEST(KeptRegistryCalls, LeaveAnEarlierErrorUntilOneSucceeds) {
  const Operation kOperations[] = {Write, Read, DeleteValue, DeleteTree, Enumerate};
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

TEST(KeptRegistryCalls, AddToTheSourceOfAnEarlierError) {
  RecordedLayer on({.create = 5});
  WriteMisfit(on.layer);
  WriteNoSuchType(on.layer);
  EXPECT_EQ(on.layer.Error(),
            (RegistryError{kNoSuchType, u"Registry[API Call] [Let ValueOf]", Text(kNoSuchTypeText)}));
}

}  // namespace
}  // namespace pointalk
