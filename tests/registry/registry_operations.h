// The operations of the registry layer on a registry that is told what to answer, for the tests of what the
// program uses and of what is kept.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

#include "registry/registry_layer.h"
#include "sim/code_page.h"
#include "tests/registry/recorded_registry.h"

namespace pointalk::testing {

inline constexpr std::int32_t kNoRoot = -2147221502;
inline constexpr std::int32_t kMisfit = -2147221501;
inline constexpr std::int32_t kNoSuchType = -2147221500;
inline constexpr TextView kApi = u"Registry[API Call]";
inline constexpr TextView kMissing = u"Key/Value does not exist.";
inline constexpr TextView kDenied = u"Access to Registry Denied.";
inline constexpr TextView kUndefined = u"Undefined key error code!";
inline constexpr TextView kMisfitText = u"Type passed doesn't match Value passed.";
inline constexpr TextView kNoSuchTypeText = u"Type passed doesn't exist. Use STRING, DWORD or BINARY.";

// The platform's codes in the words of the error object.
inline constexpr std::pair<std::int32_t, TextView> kApiErrorTexts[] = {
    {2, kMissing},
    {5, kDenied},
    {14, u"Out of memory."},
    {87, u"Invalid Parameter."},
    {1009, u"Corrupt Registry Database!"},
    {1010, u"Key name is bad."},
    {1011, u"Cannot Open Key."},
    {1012, u"Cannot Read Key."},
    {1013, u"Cannot Write Key."},
    {-1, kUndefined},
    {1, kUndefined},
    {3, kUndefined},
    {6, kUndefined},
    {234, kUndefined},
    {1008, kUndefined},
    {1014, kUndefined},
};

inline RegistryEnumeratedValue Named(TextView name, std::uint32_t type, std::initializer_list<int> bytes) {
  RegistryEnumeratedValue value{0, Text(name), type, {}};
  for (const int byte : bytes) value.data.push_back(static_cast<std::byte>(byte));
  return value;
}

// A layer over a key with a text, a number and two sub-keys.
struct RecordedLayer {
  explicit RecordedLayer(const RecordedRegistry::Codes& codes = {}) {
    registry.codes = codes;
    registry.subKeys = {"one", "two"};
    registry.values = {Named(u"text", 1, {'h', 'i', 0}), Named(u"number", 4, {7, 1, 0, 0})};
  }

  RecordedRegistry registry;
  sim::SimAnsi ansi;
  RegistryLayer layer{registry, ansi};
};

using Operation = void (*)(RegistryLayer& layer);

inline void Write(RegistryLayer& layer) { layer.WriteRegistry(u"HKCU\\A\\B", u"n", Text(u"5")); }
inline void WriteMisfit(RegistryLayer& layer) {
  layer.WriteRegistry(u"HKCU\\A", u"n", Text(u"5"), kNumberType);
}
inline void WriteNoSuchType(RegistryLayer& layer) { layer.WriteRegistry(u"HKCU\\A", u"n", Text(u"5"), 2); }
inline void DeleteValue(RegistryLayer& layer) { layer.DeleteRegistry(u"HKLM\\A", u"n"); }

struct OperationRow {
  const char* what;
  Operation run;
  RecordedRegistry::Codes codes;
  const char* calls;
  RegistryError error;
};

// The operations that the program uses.
inline std::vector<OperationRow> UsedOperations() {
  return {
      {"write", Write, {}, R"(create root 1 'A\B'; set 1 'n' 1 53.0; close 1)", {}},
      {"write into a key that does not open",
       Write,
       {.create = 5},
       R"(create root 1 'A\B'; set 0 'n' 1 53.0; close 0)",
       {0, Text(kApi), Text(kUndefined)}},
      {"write what is refused",
       Write,
       {.set = 5},
       R"(create root 1 'A\B'; set 1 'n' 1 53.0; close 1)",
       {0, Text(kApi), Text(kDenied)}},
      {"write, and the key does not close",
       Write,
       {.close = 5},
       R"(create root 1 'A\B'; set 1 'n' 1 53.0; close 1)",
       {}},
      {"write below no root",
       [](RegistryLayer& layer) { layer.WriteRegistry(u"HKXX\\A", u"n", std::int16_t{258}); },
       {},
       "create 0 'A'; set 0 'n' 4 2.1.0.0; close 0",
       {kNoRoot, Text(kApi), Text(kUndefined)}},
      {"write what does not fit",
       WriteMisfit,
       {},
       "create root 1 'A'; close 1",
       {kMisfit, u" [Let ValueOf]", Text(kMisfitText)}},
      {"write what does not fit into a key that does not open",
       WriteMisfit,
       {.create = 5},
       "create root 1 'A'; close 0",
       {kMisfit, u"Registry[API Call] [Let ValueOf]", Text(kMisfitText)}},
      {"write as an unknown type",
       WriteNoSuchType,
       {.create = 2},
       "create root 1 'A'; close 0",
       {kNoSuchType, u"Registry[API Call] [Let ValueOf]", Text(kNoSuchTypeText)}},
      {"delete a value", DeleteValue, {}, "open root 2 'A'; delete value 1 'n'; close 1", {}},
      {"delete a value of a key that does not open",
       DeleteValue,
       {.open = 2},
       "open root 2 'A'; delete value 0 'n'; close 0",
       {0, Text(kApi), Text(kUndefined)}},
      {"delete a value that is not there",
       DeleteValue,
       {.deleteValue = 2},
       "open root 2 'A'; delete value 1 'n'; close 1",
       {0, Text(kApi), Text(kMissing)}},
  };
}

}  // namespace pointalk::testing
