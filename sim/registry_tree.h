// The keys and values of the simulated registry. Names are compared without regard to case and keep the
// spelling that they were made with.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace pointalk::sim {

inline constexpr std::uint32_t kRegistryText = 1;
inline constexpr std::uint32_t kRegistryNumber = 4;

// Long names of the root keys; the number of each is 0x80000000 and more.
struct RegistryRoot {
  TextView name;
  std::uint32_t number;
};
inline constexpr RegistryRoot kRegistryRoots[] = {
    {u"HKEY_CLASSES_ROOT", 0x80000000},   {u"HKEY_CURRENT_USER", 0x80000001},
    {u"HKEY_LOCAL_MACHINE", 0x80000002},  {u"HKEY_USERS", 0x80000003},
    {u"HKEY_CURRENT_CONFIG", 0x80000005}, {u"HKEY_DYN_DATA", 0x80000006}};

struct RegistryEntry {
  Text name;
  std::uint32_t type = kRegistryText;
  std::vector<std::byte> data;
  Text text;  // of a text, without its ending NUL

  std::uint32_t Number() const;  // of a number
};

struct RegistryNode {
  Text path;  // from the long root name on
  std::vector<RegistryEntry> entries;

  // An exact match goes before one that differs in case; null when there is neither.
  RegistryEntry* Find(TextView name);

  // The entry of that name, created where it is missing.
  RegistryEntry& Make(TextView name);
};

class RegistryTree {
 public:
  RegistryTree();

  // Null when there is no such key.
  RegistryNode* Find(TextView path);

  // The key of that path, which begins with a root key's long name; created, with its parents, where missing.
  RegistryNode& Make(TextView path);

  // The key must have no sub-keys.
  void Remove(TextView path);

  // The last parts of the paths of a key's own sub-keys, in order.
  std::vector<TextView> SubKeyNames(TextView path) const;

  // Every key, sorted by path in code point order.
  std::vector<const RegistryNode*> Sorted() const;

 private:
  std::map<Text, RegistryNode> nodes_;  // by path in upper case
};

}  // namespace pointalk::sim
