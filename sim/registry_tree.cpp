#include "sim/registry_tree.h"

#include <algorithm>

namespace pointalk::sim {
namespace {

constexpr char16_t kAfterBackslash = u'\\' + 1;

// Upper case of the letters that the code page has in both cases.
char16_t UpperCase(char16_t c) {
  const bool plain = (c >= u'a' && c <= u'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7);
  if (plain) return static_cast<char16_t>(c - 0x20);
  switch (c) {
    case 0xFF: return 0x178;
    case 0x153: return 0x152;
    case 0x161: return 0x160;
    case 0x17E: return 0x17D;
    default: return c;
  }
}

Text UpperCase(TextView text) {
  Text result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char16_t c) { return UpperCase(c); });
  return result;
}

}  // namespace

std::uint32_t RegistryEntry::Number() const {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < std::min<std::size_t>(data.size(), 4); ++i) {
    number |= std::to_integer<std::uint32_t>(data[i]) << (8 * i);
  }
  return number;
}

RegistryEntry* RegistryNode::Find(TextView name) {
  auto found = std::find_if(entries.begin(), entries.end(),
                            [&](const RegistryEntry& entry) { return entry.name == name; });
  if (found == entries.end()) {
    found = std::find_if(
        entries.begin(), entries.end(),
        [wanted = UpperCase(name)](const RegistryEntry& entry) { return UpperCase(entry.name) == wanted; });
  }
  return found == entries.end() ? nullptr : &*found;
}

RegistryEntry& RegistryNode::Make(TextView name) {
  if (RegistryEntry* found = Find(name)) return *found;
  RegistryEntry& entry = entries.emplace_back();
  entry.name = name;
  return entry;
}

RegistryTree::RegistryTree() {
  for (const RegistryRoot& root : kRegistryRoots) nodes_[Text(root.name)].path = root.name;
}

RegistryNode* RegistryTree::Find(TextView path) {
  const auto found = nodes_.find(UpperCase(path));
  return found == nodes_.end() ? nullptr : &found->second;
}

RegistryNode& RegistryTree::Make(TextView path) {
  if (RegistryNode* found = Find(path)) return *found;
  Make(path.substr(0, path.rfind(u'\\')));
  RegistryNode& node = nodes_[UpperCase(path)];
  node.path = path;
  return node;
}

void RegistryTree::Remove(TextView path) { nodes_.erase(UpperCase(path)); }

std::vector<TextView> RegistryTree::SubKeyNames(TextView path) const {
  const Text prefix = UpperCase(path) + u'\\';
  std::vector<TextView> names;
  auto node = nodes_.lower_bound(prefix);
  while (node != nodes_.end() && node->first.starts_with(prefix)) {
    const auto end = node->first.find(u'\\', prefix.size());
    if (end == Text::npos) {
      names.push_back(TextView(node->second.path).substr(prefix.size()));
      ++node;
    } else {  // what lies below a sub key is left out as a whole
      node = nodes_.lower_bound(node->first.substr(0, end) + kAfterBackslash);
    }
  }
  return names;
}

std::vector<const RegistryNode*> RegistryTree::Sorted() const {
  std::vector<const RegistryNode*> sorted;
  for (const auto& [key, node] : nodes_) sorted.push_back(&node);
  std::sort(sorted.begin(), sorted.end(),
            [](const RegistryNode* a, const RegistryNode* b) { return a->path < b->path; });
  return sorted;
}

}  // namespace pointalk::sim
