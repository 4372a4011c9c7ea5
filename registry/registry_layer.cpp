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
  OpenedKey(RegistryApi& theApi, RegistryKey theKey) : api(theApi), key(theKey) {}
  ~OpenedKey() {
    if (key != 0) std::ignore = api.CloseKey(key);  // one that does not close is lost all the same
  }
  OpenedKey(const OpenedKey&) = delete;
  OpenedKey& operator=(const OpenedKey&) = delete;

  operator RegistryKey() const { return key; }

 private:
  RegistryApi& api;
  RegistryKey key;
};

}  // namespace

void RegistryLayer::WriteRegistry(TextView path, TextView name, const Variant& value, std::uint32_t type) {
  error.Clear();
  const RegistryKey root = RootKeyFromPath(path, error);
  const RegistryOpening opening = api.CreateKey(root, SubKeyFromPath(path));
  DescribeApiError(error, opening.code);
  if (opening.code != 0) return;
  const OpenedKey key(api, opening.key);
  if (type == kChooseType) type = TypeForVariant(value);
  const auto data = DataFromVariant(value, type, ansi, error);
  if (data) DescribeApiError(error, api.SetValue(key, name, type, *data));
}

Variant RegistryLayer::ReadRegistry(TextView path, TextView name) {
  error.Clear();
  const OpenedKey key(api, OpenPath(path));
  if (key == 0) return VariantEmpty();
  const RegistryValueData read = QueryData(key, name);
  DescribeApiError(error, read.code);
  return VariantFromData(read.data, read.type, ansi);
}

void RegistryLayer::DeleteRegistry(TextView path, TextView name) {
  error.Clear();
  const OpenedKey key(api, OpenPath(path));
  if (key != 0) DescribeApiError(error, api.DeleteValue(key, name));
}

void RegistryLayer::DeleteRegistry(TextView path) {
  error.Clear();
  const RegistryKey root = RootKeyFromPath(path, error);
  std::ignore = DeleteTree(root, SubKeyFromPath(path), 1);  // a tree that is too deep stays
}

// False when it came too deep: then nothing more is opened. Each key is opened from the one that it is in,
// for the whole path may be longer than the platform takes.
bool RegistryLayer::DeleteTree(RegistryKey parent, TextView subKey, int level) {
  const OpenedKey key(api, OpenKey(parent, subKey));
  if (key == 0) return true;
  const std::vector<Text> names = SubKeyNames(key);
  bool goOn = names.empty() || level < kDeepestLevel;
  for (auto name = names.begin(); goOn && name != names.end(); ++name) {
    goOn = DeleteTree(key, *name, level + 1);
  }
  DescribeApiError(error, api.DeleteKey(key, {}));
  return goOn;
}

std::vector<NamedRegistryValue> RegistryLayer::EnumerateRegistryValues(TextView path) {
  error.Clear();
  std::vector<NamedRegistryValue> values;
  const OpenedKey key(api, OpenPath(path));
  if (key == 0) return values;
  const RegistryKeyInfo info = api.QueryKey(key);
  DescribeApiError(error, info.code);
  for (std::uint32_t index = 0; index < info.values; ++index) {
    RegistryName found = api.ValueName(key, index, Capacity(info.longestValueName));
    if (found.code != 0) continue;
    const RegistryValueData read = QueryData(key, found.name);
    if (read.code != 0) continue;
    values.push_back({std::move(found.name), read.type, VariantFromData(read.data, read.type, ansi)});
  }
  return values;
}

RegistryKey RegistryLayer::OpenPath(TextView path) {
  const RegistryKey root = RootKeyFromPath(path, error);
  return OpenKey(root, SubKeyFromPath(path));
}

// 0 where the key does not open.
RegistryKey RegistryLayer::OpenKey(RegistryKey parent, TextView subKey) {
  const RegistryOpening opening = api.OpenKey(parent, subKey);
  DescribeApiError(error, opening.code);
  return opening.code == 0 ? opening.key : 0;
}

// All of them before the first is deleted, which moves those behind it forward. An empty name would open the
// key itself again.
std::vector<Text> RegistryLayer::SubKeyNames(RegistryKey key) {
  const RegistryKeyInfo info = api.QueryKey(key);
  std::vector<Text> names;
  for (std::uint32_t index = 0; index < info.subKeys; ++index) {
    RegistryName found = api.SubKeyName(key, index, Capacity(info.longestSubKeyName));
    if (found.code == 0 && !found.name.empty()) names.push_back(std::move(found.name));
  }
  return names;
}

RegistryValueData RegistryLayer::QueryData(RegistryKey key, TextView name) {
  const RegistryValueSize size = api.QueryValueSize(key, name);
  if (size.code != 0) return {size.code, 0, {}};
  return api.QueryValue(key, name, size.bytes);
}

}  // namespace pointalk
