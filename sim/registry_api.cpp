#include "sim/registry_api.h"

#include <algorithm>
#include <utility>

#include "sim/code_page.h"

namespace pointalk::sim {
namespace {

constexpr std::int32_t kNotFound = 2;
constexpr std::int32_t kDenied = 5;
constexpr std::int32_t kBadHandle = 6;
constexpr std::int32_t kBadPath = 161;
constexpr std::int32_t kMoreData = 234;
constexpr std::int32_t kNoMoreItems = 259;
constexpr std::int32_t kKeyDeleted = 1018;

// A text's data up to its first NUL.
Text TextOf(const std::vector<std::byte>& data) {
  const auto end = std::find(data.begin(), data.end(), std::byte{0});
  return SimAnsi().ToText(std::span(data.begin(), end));
}

// A name as it comes in a buffer of that capacity, into which its ending NUL has to fit as well.
RegistryName NameInBuffer(TextView name, std::uint32_t capacity) {
  if (name.size() >= capacity) return {kMoreData, {}};
  return {0, ThroughAnsi(name)};
}

bool IsRoot(const RegistryNode& node) { return node.path.find(u'\\') == Text::npos; }

}  // namespace

void AddRegistryValue(Transcript& transcript, std::string_view what, const RegistryNode& key,
                      const RegistryEntry& entry) {
  if (entry.type == kRegistryNumber) {
    transcript.Add(what, key.path, entry.name, entry.type, entry.Number());
  } else if (entry.type == kRegistryText) {
    transcript.Add(what, key.path, entry.name, entry.type, entry.text);
  } else {
    transcript.Add(what, key.path, entry.name, entry.type, HexadecimalBytes{entry.data});
  }
}

void ShowRegistry(const RegistryTree& tree, Transcript& transcript) {
  for (const RegistryNode* const key : tree.Sorted()) {
    std::vector<const RegistryEntry*> entries;
    for (const RegistryEntry& entry : key->entries) entries.push_back(&entry);
    std::sort(entries.begin(), entries.end(),
              [](const RegistryEntry* a, const RegistryEntry* b) { return a->name < b->name; });
    for (const RegistryEntry* const entry : entries) AddRegistryValue(transcript, "value", *key, *entry);
  }
}

SimRegistry::SimRegistry(Machine& machine) : machine_(machine) {
  for (const RegistryRoot& root : kRegistryRoots) open_.emplace(root.number, root.name);
}

SimRegistry::Found SimRegistry::Look(RegistryKey key) {
  if (machine_.setup.registryDenied) return {kDenied};
  const auto path = open_.find(key);
  if (path == open_.end()) return {kBadHandle};
  RegistryNode* const node = machine_.setup.registry.Find(path->second);
  if (node == nullptr) return {kKeyDeleted};
  return {0, node};
}

SimRegistry::FoundEntry SimRegistry::LookFor(RegistryKey key, TextView name) {
  const auto [code, node] = Look(key);
  if (node == nullptr) return {code};
  RegistryEntry* const entry = node->Find(ThroughAnsi(name));
  if (entry == nullptr) return {kNotFound};
  return {0, entry};
}

RegistryOpening SimRegistry::Open(RegistryKey root, TextView subKey, bool create) {
  const auto [code, parent] = Look(root);
  if (parent == nullptr) return {code};
  Text path = parent->path;
  if (!subKey.empty()) path.append(1, u'\\').append(ThroughAnsi(subKey));
  if (path.ends_with(u'\\')) path.pop_back();
  if (path.find(u"\\\\") != Text::npos) return {kBadPath};
  RegistryTree& tree = machine_.setup.registry;
  const RegistryNode* const node = create ? &tree.Make(path) : tree.Find(path);
  if (node == nullptr) return {kNotFound};
  open_.emplace(++lastKey_, node->path);
  return {0, lastKey_};
}

RegistryOpening SimRegistry::CreateKey(RegistryKey root, TextView subKey) { return Open(root, subKey, true); }

RegistryOpening SimRegistry::OpenKey(RegistryKey root, TextView subKey) { return Open(root, subKey, false); }

std::int32_t SimRegistry::CloseKey(RegistryKey key) {
  if (machine_.setup.registryDenied) return kDenied;
  const auto found = open_.find(key);
  if (found == open_.end()) return kBadHandle;
  const bool isRootNumber = key >= kRegistryRoots[0].number;
  if (!isRootNumber) open_.erase(found);
  return 0;
}

std::int32_t SimRegistry::SetValue(RegistryKey key, TextView name, std::uint32_t type,
                                   const std::vector<std::byte>& data) {
  const auto [code, node] = Look(key);
  if (node == nullptr) return code;
  RegistryEntry& entry = node->Make(ThroughAnsi(name));
  entry.type = type;
  entry.data = data;
  entry.text = type == kRegistryText ? TextOf(data) : Text();
  if (machine_.programRuns) AddRegistryValue(machine_.transcript, "registry set", *node, entry);
  return 0;
}

RegistryValueSize SimRegistry::QueryValueSize(RegistryKey key, TextView name) {
  const auto [code, entry] = LookFor(key, name);
  if (entry == nullptr) return {code};
  return {0, entry->type, static_cast<std::uint32_t>(entry->data.size())};
}

RegistryValueData SimRegistry::QueryValue(RegistryKey key, TextView name, std::uint32_t bytes) {
  const auto [code, entry] = LookFor(key, name);
  if (entry == nullptr) return {code, 0, {}};
  if (bytes < entry->data.size()) return {kMoreData, 0, {}};
  return {0, entry->type, entry->data};
}

std::int32_t SimRegistry::DeleteValue(RegistryKey key, TextView name) {
  const auto [code, entry] = LookFor(key, name);
  if (entry == nullptr) return code;
  RegistryNode& node = *Look(key).node;
  machine_.Record("registry delete", node.path, entry->name);
  node.entries.erase(node.entries.begin() + (entry - node.entries.data()));
  return 0;
}

RegistryKeyInfo SimRegistry::QueryKey(RegistryKey key) {
  const auto [code, node] = Look(key);
  if (node == nullptr) return {code};
  RegistryKeyInfo info;
  for (const TextView name : machine_.setup.registry.SubKeyNames(node->path)) {
    ++info.subKeys;
    info.longestSubKeyName = std::max(info.longestSubKeyName, static_cast<std::uint32_t>(name.size()));
  }
  for (const RegistryEntry& entry : node->entries) {
    ++info.values;
    info.longestValueName = std::max(info.longestValueName, static_cast<std::uint32_t>(entry.name.size()));
  }
  return info;
}

RegistryName SimRegistry::SubKeyName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) {
  const auto [code, node] = Look(key);
  if (node == nullptr) return {code, {}};
  const auto names = machine_.setup.registry.SubKeyNames(node->path);
  if (index >= names.size()) return {kNoMoreItems, {}};
  return NameInBuffer(names[index], capacity);
}

RegistryEnumeratedValue SimRegistry::ValueAt(RegistryKey key, std::uint32_t index, std::uint32_t capacity) {
  const auto [code, node] = Look(key);
  if (node == nullptr) return {code, {}, 0, {}};
  if (index >= node->entries.size()) return {kNoMoreItems, {}, 0, {}};
  const RegistryEntry& entry = node->entries[index];
  RegistryName found = NameInBuffer(entry.name, capacity);
  if (found.code != 0) return {found.code, {}, 0, {}};
  return {0, std::move(found.name), entry.type, entry.data};
}

std::int32_t SimRegistry::DeleteKey(RegistryKey key, TextView subKey) {
  const RegistryOpening opening = OpenKey(key, subKey);
  if (opening.code != 0) return opening.code;
  const Text path = open_.at(opening.key);
  open_.erase(opening.key);
  RegistryTree& tree = machine_.setup.registry;
  if (IsRoot(*tree.Find(path)) || !tree.SubKeyNames(path).empty()) return kDenied;
  machine_.Record("registry remove", path);
  tree.Remove(path);
  return 0;
}

}  // namespace pointalk::sim
