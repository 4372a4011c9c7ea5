// The operations. Where a key does not open, the calls that follow are made all the same, without one: the
// platform refuses them, and the error tells of the last that is described.
#include "registry/registry_layer.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "registry/registry_path.h"

namespace pointalk {
namespace {

// No registry is deeper: where it seems so, a link leads back up, and would do so for ever.
constexpr int kDeepestLevel = 512;

// Characters of the name and its ending NUL.
constexpr std::uint32_t Capacity(std::uint32_t longestName) { return longestName + 1; }

class OpenedKey {
 public:
  OpenedKey(RegistryApi& registry, RegistryKey key) : registry_(registry), key_(key) {}
  ~OpenedKey() { std::ignore = registry_.CloseKey(key_); }  // one that does not close is lost all the same
  OpenedKey(const OpenedKey&) = delete;
  OpenedKey& operator=(const OpenedKey&) = delete;

  operator RegistryKey() const { return key_; }

 private:
  RegistryApi& registry_;
  RegistryKey key_;
};

}  // namespace

void RegistryLayer::WriteRegistry(TextView path, TextView name, const Variant& value, std::uint32_t type) {
  const RegistryKey root = RootKeyFromPath(path, error_);
  const OpenedKey key(registry_, Described(registry_.CreateKey(root, SubKeyFromPath(path))));
  if (type == kChooseType) type = TypeForVariant(value);
  const auto data = DataFromVariant(value, type, ansi_, error_);
  if (data) DescribeApiError(error_, registry_.SetValue(key, name, type, *data));
}

Variant RegistryLayer::ReadRegistry(TextView path, TextView name) {
  const OpenedKey key(registry_, OpenPath(path));
  const RegistryValueSize size = registry_.QueryValueSize(key, name);
  const RegistryValueData read = registry_.QueryValue(key, name, size.bytes);
  return VariantFromData(read.data, read.type, ansi_);
}

void RegistryLayer::DeleteRegistry(TextView path, TextView name) {
  const OpenedKey key(registry_, OpenPath(path));
  DescribeApiError(error_, registry_.DeleteValue(key, name));
}

void RegistryLayer::DeleteRegistry(TextView path) {
  const RegistryKey root = RootKeyFromPath(path, error_);
  std::ignore = DeleteTree(root, SubKeyFromPath(path), 1);  // a tree that is too deep stays
}

// False when it came too deep: then no more keys are opened. Each key is opened from the one that it is in,
// for the whole path may be longer than the platform takes.
bool RegistryLayer::DeleteTree(RegistryKey parent, TextView subKey, int level) {
  const OpenedKey key(registry_, Described(registry_.OpenKey(parent, subKey)));
  const std::vector<Text> names = SubKeyNames(key);
  bool goOn = names.empty() || level < kDeepestLevel;
  for (auto name = names.begin(); goOn && name != names.end(); ++name) {
    goOn = DeleteTree(key, *name, level + 1);
  }
  DescribeApiError(error_, registry_.DeleteKey(key, {}));
  return goOn;
}

std::vector<NamedRegistryValue> RegistryLayer::EnumerateRegistryValues(TextView path) {
  std::vector<NamedRegistryValue> values;
  const OpenedKey key(registry_, OpenPath(path));
  const RegistryKeyInfo info = registry_.QueryKey(key);
  DescribeApiError(error_, info.code);
  for (std::uint32_t index = 0; index < info.values; ++index) {
    RegistryEnumeratedValue found = registry_.ValueAt(key, index, Capacity(info.longestValueName));
    if (found.code != 0) continue;
    values.push_back({std::move(found.name), found.type, VariantFromData(found.data, found.type, ansi_)});
  }
  return values;
}

RegistryKey RegistryLayer::OpenPath(TextView path) {
  const RegistryKey root = RootKeyFromPath(path, error_);
  return Described(registry_.OpenKey(root, SubKeyFromPath(path)));
}

RegistryKey RegistryLayer::Described(RegistryOpening opening) {
  DescribeApiError(error_, opening.code);
  return opening.code == 0 ? opening.key : 0;
}

// All of them before the first is deleted, which moves those behind it forward. An empty name would open the
// key itself again.
std::vector<Text> RegistryLayer::SubKeyNames(RegistryKey key) {
  const RegistryKeyInfo info = registry_.QueryKey(key);
  std::vector<Text> names;
  for (std::uint32_t index = 0; index < info.subKeys; ++index) {
    RegistryName found = registry_.SubKeyName(key, index, Capacity(info.longestSubKeyName));
    if (found.code == 0 && !found.name.empty()) names.push_back(std::move(found.name));
  }
  return names;
}

}  // namespace pointalk
