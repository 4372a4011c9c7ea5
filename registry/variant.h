// A value of any kind, as automation passes them around.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

#include "text/text.h"

namespace pointalk {

using VariantEmpty = std::monostate;

struct VariantNull {
  bool operator==(const VariantNull&) const = default;
};

struct VariantCurrency {
  std::int64_t tenThousandths = 0;

  bool operator==(const VariantCurrency&) const = default;
};

struct VariantDate {
  double days = 0;  // since 30 December 1899, the time of day as a fraction

  bool operator==(const VariantDate&) const = default;
};

struct VariantObject {
  Text text;  // what the object gives as its own value

  bool operator==(const VariantObject&) const = default;
};

struct VariantError {
  std::int32_t code = 0;

  bool operator==(const VariantError&) const = default;
};

// A whole number of 96 bits, shifted right by some decimal places.
struct VariantDecimal {
  std::array<std::uint32_t, 3> whole{};  // least significant first
  std::uint8_t places = 0;               // 0 to 28
  bool negative = false;

  bool operator==(const VariantDecimal&) const = default;
};

// An object that cannot be asked for anything.
struct VariantUnknown {
  bool operator==(const VariantUnknown&) const = default;
};

using VariantArray = std::vector<std::byte>;

using Variant = std::variant<VariantEmpty, VariantNull, std::int16_t, std::int32_t, float, double,
                             VariantCurrency, VariantDate, Text, VariantObject, VariantError, bool,
                             VariantDecimal, VariantUnknown, std::uint8_t, VariantArray>;

// The value in words and decimal digits, the same on every machine: a date as its number of days, True or
// False, an error with its number. Empty for what has no text of its own, an array among them.
Text VariantText(const Variant& value);

}  // namespace pointalk
