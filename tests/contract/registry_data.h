// The user's key, and the data of values, for the contracts of the registry.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/registry_api.h"

namespace pointalk::contract {

inline constexpr RegistryKey kCurrentUser = 0x80000001;

inline std::vector<std::byte> Bytes(std::string_view characters) {
  std::vector<std::byte> bytes;
  for (const char character : characters) bytes.push_back(static_cast<std::byte>(character));
  return bytes;
}

}  // namespace pointalk::contract
