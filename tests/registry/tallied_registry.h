// A registry in front of another one, that knows which keys are open, can hold links and lose names.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

#include "platform/registry_api.h"

namespace pointalk::testing {

class TalliedRegistry final : public RegistryApi {
 public:
  explicit TalliedRegistry(RegistryApi& theBase) : base(theBase) {}

  std::set<RegistryKey> open;
  std::size_t mostOpen = 0;
  Text link;               // sub-keys whose name begins so lead to the key that they are in
  bool loseNames = false;  // the names of sub-keys come out empty

  RegistryOpening CreateKey(RegistryKey root, TextView subKey) override {
    return Opened(base.CreateKey(root, subKey));
  }
  RegistryOpening OpenKey(RegistryKey root, TextView subKey) override {
    const bool isLink = !link.empty() && subKey.starts_with(link);
    return Opened(base.OpenKey(root, isLink ? TextView() : subKey));
  }
  std::int32_t CloseKey(RegistryKey key) override {
    EXPECT_EQ(open.erase(key), 1u) << "a key that is not open";
    return base.CloseKey(key);
  }
  std::int32_t SetValue(RegistryKey key, TextView name, std::uint32_t type,
                        const std::vector<std::byte>& data) override {
    return base.SetValue(key, name, type, data);
  }
  RegistryValueSize QueryValueSize(RegistryKey key, TextView name) override {
    return base.QueryValueSize(key, name);
  }
  RegistryValueData QueryValue(RegistryKey key, TextView name, std::uint32_t bytes) override {
    return base.QueryValue(key, name, bytes);
  }
  std::int32_t DeleteValue(RegistryKey key, TextView name) override { return base.DeleteValue(key, name); }
  RegistryKeyInfo QueryKey(RegistryKey key) override { return base.QueryKey(key); }
  RegistryName SubKeyName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) override {
    RegistryName found = base.SubKeyName(key, index, capacity);
    if (loseNames) found.name.clear();
    return found;
  }
  RegistryName ValueName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) override {
    return base.ValueName(key, index, capacity);
  }
  std::int32_t DeleteKey(RegistryKey key, TextView subKey) override { return base.DeleteKey(key, subKey); }

 private:
  RegistryApi& base;

  RegistryOpening Opened(RegistryOpening opening) {
    if (opening.code == 0) open.insert(opening.key);
    mostOpen = std::max(mostOpen, open.size());
    return opening;
  }
};

}  // namespace pointalk::testing
