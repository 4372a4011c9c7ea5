// The messages that the readers send to controls, by the platform's names and numbers.
#pragma once

#include <cstdint>

namespace pointalk {

inline constexpr std::uint32_t kWmGetTextLength = 14;
inline constexpr std::uint32_t kEmLineLength = 0xC1;
inline constexpr std::uint32_t kEmLineFromChar = 0xC9;
inline constexpr std::uint32_t kEmCharFromPos = 0xD7;
inline constexpr std::uint32_t kLbGetTopIndex = 0x18E;
inline constexpr std::uint32_t kLbGetTextLen = 0x18A;
inline constexpr std::uint32_t kLbItemFromPoint = 0x1A9;
inline constexpr std::uint32_t kLvmGetItemCount = 0x1004;
inline constexpr std::uint32_t kLvmGetItemA = 0x1005;
inline constexpr std::uint32_t kLvmSubItemHitTest = 0x1039;

// The most characters of a text that are fetched from another program.
inline constexpr std::int32_t kMostFetched = 65536;

// A point in client coordinates as one number: y in the upper half, x added below it.
constexpr std::uint64_t PackedPoint(std::int32_t x, std::int32_t y) {
  return static_cast<std::uint32_t>(y) * 65536U + static_cast<std::uint32_t>(x);
}

}  // namespace pointalk
