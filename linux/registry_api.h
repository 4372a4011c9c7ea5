// The one value of a registry that means something here: that the program is started with the user's session,
// which is a desktop entry in the user's autostart folder. Every other key is missing.
#pragma once

#include "platform/registry_api.h"

namespace pointalk::linux {

class LinuxRegistry final : public RegistryApi {
 public:
  RegistryOpening CreateKey(RegistryKey root, TextView subKey) override { return OpenKey(root, subKey); }
  RegistryOpening OpenKey(RegistryKey root, TextView subKey) override;
  std::int32_t CloseKey(RegistryKey key) override;
  std::int32_t SetValue(RegistryKey key, TextView name, std::uint32_t type,
                        const std::vector<std::byte>& data) override;
  RegistryValueSize QueryValueSize(RegistryKey key, TextView name) override;
  RegistryValueData QueryValue(RegistryKey key, TextView name, std::uint32_t bytes) override;
  std::int32_t DeleteValue(RegistryKey key, TextView name) override;
  RegistryKeyInfo QueryKey(RegistryKey key) override;
  RegistryName SubKeyName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) override;
  RegistryEnumeratedValue ValueAt(RegistryKey key, std::uint32_t index, std::uint32_t capacity) override;
  std::int32_t DeleteKey(RegistryKey key, TextView subKey) override;
};

}  // namespace pointalk::linux
