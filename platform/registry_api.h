// Seam: the platform's registry functions, one method each, with the platform's own return codes (0 is
// success).
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "text/text.h"

namespace pointalk {

using RegistryKey = std::uint64_t;  // an open key or a root key's number; 0 is none

struct RegistryOpening {
  std::int32_t code = 0;
  RegistryKey key = 0;
};

struct RegistryValueSize {
  std::int32_t code = 0;
  std::uint32_t type = 0;   // 1 text, 3 binary, 4 32-bit number
  std::uint32_t bytes = 0;  // for text with its ending NUL; 0 on failure
};

struct RegistryValueData {
  std::int32_t code = 0;
  std::uint32_t type = 0;
  std::vector<std::byte> data;
};

struct RegistryKeyInfo {
  std::int32_t code = 0;
  std::uint32_t subKeys = 0;
  std::uint32_t longestSubKeyName = 0;  // characters, without the ending NUL
  std::uint32_t values = 0;
  std::uint32_t longestValueName = 0;  // characters, without the ending NUL
};

struct RegistryName {
  std::int32_t code = 0;
  Text name;
};

// A value of a key, as it is enumerated. Its data comes with its name: by an 8-bit name that lost a character
// to the code page, no value would be found, or another one.
struct RegistryEnumeratedValue {
  std::int32_t code = 0;
  Text name;
  std::uint32_t type = 0;
  std::vector<std::byte> data;
};

// Names and texts go in and come out as 8-bit text, however the platform keeps them: a character that the
// code page lacks comes out as "?".
class RegistryApi {
 public:
  virtual ~RegistryApi() = default;

  // Both ask for all access.
  virtual RegistryOpening CreateKey(RegistryKey root, TextView subKey) = 0;
  virtual RegistryOpening OpenKey(RegistryKey root, TextView subKey) = 0;
  virtual std::int32_t CloseKey(RegistryKey key) = 0;

  // Text data is 8-bit text with its ending NUL; the platform stores what it is given.
  virtual std::int32_t SetValue(RegistryKey key, TextView name, std::uint32_t type,
                                const std::vector<std::byte>& data) = 0;

  // The first gives type and size, the second type and data. It fails where the data is larger than that many
  // bytes.
  // Kept: nothing reads it.
  virtual RegistryValueSize QueryValueSize(RegistryKey key, TextView name) = 0;
  // Kept: nothing reads it.
  virtual RegistryValueData QueryValue(RegistryKey key, TextView name, std::uint32_t bytes) = 0;
  virtual std::int32_t DeleteValue(RegistryKey key, TextView name) = 0;

  virtual RegistryKeyInfo QueryKey(RegistryKey key) = 0;  // Kept: nothing reads it.

  // By their index from 0. Capacity is the longest name that fits, in characters with its ending NUL.
  // Kept: nothing reads it.
  virtual RegistryName SubKeyName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) = 0;
  // Kept: nothing reads it.
  virtual RegistryEnumeratedValue ValueAt(RegistryKey key, std::uint32_t index, std::uint32_t capacity) = 0;

  // Removes a key that has no sub-keys; with an empty name the open key itself.
  // Kept: nothing reads it.
  virtual std::int32_t DeleteKey(RegistryKey key, TextView subKey) = 0;
};

}  // namespace pointalk
