// The simulated registry's functions.
#pragma once

#include <map>
#include <optional>

#include "platform/registry_api.h"
#include "sim/machine.h"

namespace pointalk::sim {

// A line that tells of a value: its key, name, type and what it holds.
void AddRegistryValue(Transcript& transcript, std::string_view what, const RegistryNode& key,
                      const RegistryEntry& entry);

// A line for each value, sorted by key and then by name.
void ShowRegistry(const RegistryTree& tree, Transcript& transcript);

class SimRegistry final : public RegistryApi {
 public:
  explicit SimRegistry(Machine& machine);

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

 private:
  // What an open key or a root key stands for: the platform's error code, or the key itself.
  struct Found {
    std::int32_t code = 0;
    RegistryNode* node = nullptr;
  };
  struct FoundEntry {
    std::int32_t code = 0;
    RegistryEntry* entry = nullptr;
  };

  Found Look(RegistryKey key);
  FoundEntry LookFor(RegistryKey key, TextView name);
  RegistryOpening Open(RegistryKey root, TextView subKey, bool create);

  Machine& machine_;
  std::map<RegistryKey, Text> open_;  // the paths of open keys and of the root keys
  RegistryKey lastKey_ = 0x100;
};

}  // namespace pointalk::sim
