// The operations. Each ends early where its key does not open, so that the error tells the first cause.
#include "registry/registry_layer.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "registry/registry_path.h"

namespace pointalk {
namespace {

// No registry is deeper: where it seems so, a link leads back up, and would do so for ever.
constexpr int kDeepestLevel = 512;

// Names are counted in UTF-16 and come in 8-bit text, where a character may take up to three bytes.
constexpr std::uint32_t Capacity(std::uint32_t longestName) { return longestName * 3 + 1; }

class OpenedKey {
 public:
  OpenedKey(RegistryApi& api, RegistryKey key) : api_(api), key_(key) {}
  ~OpenedKey() {
    if (key_ != 0) std::ignore = api_.CloseKey(key_);  // one that does not close is lost all the same
  }
  OpenedKey(const OpenedKey&) = delete;
  OpenedKey& operator=(const OpenedKey&) = delete;

  operator RegistryKey() const { return key_; }

 private:
  RegistryApi& api_;
  RegistryKey key_;
};

}  // namespace

void RegistryLayer::WriteRegistry(TextView path, TextView name, const Variant& value, std::uint32_t type) {
  error_.Clear();
  const RegistryKey root = RootKeyFromPath(path, error_);
  const RegistryOpening opening = api_.CreateKey(root, SubKeyFromPath(path));
  DescribeApiError(error_, opening.code);
  if (opening.code != 0) return;
  const OpenedKey key(api_, opening.key);
  if (type == kChooseType) type = TypeForVariant(value);
  const auto data = DataFromVariant(value, type, ansi_, error_);
  if (data) DescribeApiError(error_, api_.SetValue(key, name, type, *data));
}

Variant RegistryLayer::ReadRegistry(TextView path, TextView name) {
  error_.Clear();
  const OpenedKey key(api_, OpenPath(path));
  if (key == 0) return VariantEmpty();
  const RegistryValueData read = QueryData(key, name);
  DescribeApiError(error_, read.code);
  return VariantFromData(read.data, read.type, ansi_);
}

void RegistryLayer::DeleteRegistry(TextView path, TextView name) {
  error_.Clear();
  const OpenedKey key(api_, OpenPath(path));
  if (key != 0) DescribeApiError(error_, api_.DeleteValue(key, name));
}

void RegistryLayer::DeleteRegistry(TextView path) {
  error_.Clear();
  const RegistryKey root = RootKeyFromPath(path, error_);
  std::ignore = DeleteTree(root, SubKeyFromPath(path), 1);  // a tree that is too deep stays
}

// False when it came too deep: then no more keys are opened. Each key is opened from the one that it is in,
// for the whole path may be longer than the platform takes.
bool RegistryLayer::DeleteTree(RegistryKey parent, TextView subKey, int level) {
  const OpenedKey key(api_, OpenKey(parent, subKey));
  if (key == 0) return true;
  const std::vector<Text> names = SubKeyNames(key);
  bool goOn = names.empty() || level < kDeepestLevel;
  for (auto name = names.begin(); goOn && name != names.end(); ++name) {
    goOn = DeleteTree(key, *name, level + 1);
  }
  DescribeApiError(error_, api_.DeleteKey(key, {}));
  return goOn;
}

std::vector<NamedRegistryValue> RegistryLayer::EnumerateRegistryValues(TextView path) {
  error_.Clear();
  std::vector<NamedRegistryValue> values;
  const OpenedKey key(api_, OpenPath(path));
  if (key == 0) return values;
  const RegistryKeyInfo info = api_.QueryKey(key);
  DescribeApiError(error_, info.code);
  for (std::uint32_t index = 0; index < info.values; ++index) {
    RegistryName found = api_.ValueName(key, index, Capacity(info.longestValueName));
    if (found.code != 0) continue;
    const RegistryValueData read = QueryData(key, found.name);
    if (read.code != 0) continue;
    values.push_back({std::move(found.name), read.type, VariantFromData(read.data, read.type, ansi_)});
  }
  return values;
}

RegistryKey RegistryLayer::OpenPath(TextView path) {
  const RegistryKey root = RootKeyFromPath(path, error_);
  return OpenKey(root, SubKeyFromPath(path));
}

// 0 where the key does not open.
RegistryKey RegistryLayer::OpenKey(RegistryKey parent, TextView subKey) {
  const RegistryOpening opening = api_.OpenKey(parent, subKey);
  DescribeApiError(error_, opening.code);
  return opening.code == 0 ? opening.key : 0;
}

// All of them before the first is deleted, which moves those behind it forward. An empty name would open the
// key itself again.
std::vector<Text> RegistryLayer::SubKeyNames(RegistryKey key) {
  const RegistryKeyInfo info = api_.QueryKey(key);
  std::vector<Text> names;
  for (std::uint32_t index = 0; index < info.subKeys; ++index) {
    RegistryName found = api_.SubKeyName(key, index, Capacity(info.longestSubKeyName));
    if (found.code == 0 && !found.name.empty()) names.push_back(std::move(found.name));
  }
  return names;
}

RegistryValueData RegistryLayer::QueryData(RegistryKey key, TextView name) {
  const RegistryValueSize size = api_.QueryValueSize(key, name);
  if (size.code != 0) return {size.code, 0, {}};
  return api_.QueryValue(key, name, size.bytes);
}

}  // namespace pointalk
