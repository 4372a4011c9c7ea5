// A registry in front of another one, that knows which keys are open, can hold links and lose names.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/support/forwarding.h"

namespace pointalk::testing {

class TalliedRegistry final : public ForwardingRegistryApi {
 public:
  using ForwardingRegistryApi::ForwardingRegistryApi;

  std::set<RegistryKey> open;
  std::size_t mostOpen = 0;
  Text link;               // sub-keys whose name begins so lead to the key that they are in
  bool loseNames = false;  // the names of sub-keys come out empty

  RegistryOpening CreateKey(RegistryKey root, TextView subKey) override {
    return Opened(ForwardingRegistryApi::CreateKey(root, subKey));
  }
  RegistryOpening OpenKey(RegistryKey root, TextView subKey) override {
    const bool isLink = !link.empty() && subKey.starts_with(link);
    return Opened(ForwardingRegistryApi::OpenKey(root, isLink ? TextView() : subKey));
  }
  std::int32_t CloseKey(RegistryKey key) override {
    if (key != 0) {
      EXPECT_EQ(open.erase(key), 1u) << "a key that is not open";
    }
    return ForwardingRegistryApi::CloseKey(key);
  }
  RegistryName SubKeyName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) override {
    RegistryName found = ForwardingRegistryApi::SubKeyName(key, index, capacity);
    if (loseNames) found.name.clear();
    return found;
  }

 private:
  RegistryOpening Opened(RegistryOpening opening) {
    if (opening.code == 0) open.insert(opening.key);
    mostOpen = std::max(mostOpen, open.size());
    return opening;
  }
};

}  // namespace pointalk::testing
