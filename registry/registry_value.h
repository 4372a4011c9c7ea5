// How values lie in the registry: which type a variant is written as, and its data.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/ansi.h"
#include "registry/registry_error.h"
#include "registry/variant.h"

namespace pointalk {

inline constexpr std::uint32_t kChooseType = 0;  // by the variant
inline constexpr std::uint32_t kStringType = 1;  // 8-bit text with its ending NUL
inline constexpr std::uint32_t kBinaryType = 3;
inline constexpr std::uint32_t kNumberType = 4;  // 32 bits, least significant byte first

std::uint32_t TypeForVariant(const Variant& value);

// The data to be written. As a number, only a whole one from -2^31 to 2^32 - 1 fits; as a string, anything
// but an array; as binary, whatever has bytes of its own, which empty, null and objects have not. No value,
// with kTypeMismatch, for a value that does not fit; with kUnknownType for any other type.
std::optional<std::vector<std::byte>> DataFromVariant(const Variant& value, std::uint32_t type,
                                                      AnsiCodePage& ansi, RegistryError& error);

// What was read: an array of bytes, a number as a long of the same 32 bits (bytes that are missing count as
// 0), or for every other type the text up to its NUL. Empty where there is no data.
Variant VariantFromData(const std::vector<std::byte>& data, std::uint32_t type,
                        AnsiCodePage& ansi);  // Kept: nothing reads it.

}  // namespace pointalk
