// The registry layer's error object, and the texts of what can go wrong.
#pragma once

#include <cstdint>

#include "text/text.h"

namespace pointalk {

// What went wrong last; all of it is empty while no error is known.
struct RegistryError {
  std::int32_t number = 0;  // of the layer's own errors; the platform's have none
  Text source;
  Text description;

  void Clear() { *this = RegistryError(); }

  bool operator==(const RegistryError&) const = default;
};

// The layer's own errors.
inline constexpr std::int32_t kNoCurrentKey = 1;  // Kept: nothing reads it.
inline constexpr std::int32_t kInvalidRoot = 2;
inline constexpr std::int32_t kTypeMismatch = 3;
inline constexpr std::int32_t kUnknownType = 4;

// Puts one of the layer's own errors into the object. Whoever raises goes on: no exception is thrown.
void RaiseRegistryError(RegistryError& error, std::int32_t code);

// Puts what a registry function returned into words. The number stays; success (0) clears the object.
void DescribeApiError(RegistryError& error, std::int32_t code);

}  // namespace pointalk
