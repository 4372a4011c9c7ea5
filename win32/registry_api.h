// The registry as its 8-bit functions give it. What comes out is asked for in Unicode and narrowed here: the
// system itself would put a similar letter for one that the code page lacks.
#pragma once

#include "platform/registry_api.h"

namespace pointalk::win32 {

class WinRegistry final : public RegistryApi {
 public:
  RegistryOpening CreateKey(RegistryKey root, TextView subKey) override;
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

}  // namespace pointalk::win32
