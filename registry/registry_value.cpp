#include "registry/registry_value.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <type_traits>

#include "text/numbers.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

using Bytes = std::vector<std::byte>;

constexpr std::size_t kNumberBytes = 4;

// Least significant first.
template <class Unsigned> void Append(Bytes& bytes, Unsigned number) {
  static_assert(std::is_unsigned_v<Unsigned>);
  for (std::size_t i = 0; i < sizeof number; ++i) {
    bytes.push_back(static_cast<std::byte>(std::uint64_t{number} >> (8 * i) & 0xFF));
  }
}

template <class Unsigned> Bytes BytesOf(Unsigned number) {
  Bytes bytes;
  Append(bytes, number);
  return bytes;
}

std::optional<std::uint32_t> WholeNumber(double number) {
  if (!(number >= -2147483648.0 && number <= 4294967295.0) || number != std::floor(number)) {
    return std::nullopt;
  }
  return static_cast<std::uint32_t>(static_cast<std::int64_t>(number));
}

// Of a value whose text is exact.
std::optional<std::uint32_t> ExactNumber(const Variant& value) {
  const Text digits = VariantText(value);
  return Contains(digits, u".") ? std::nullopt : WholeNumber(ReadNumber(digits));
}

struct ToNumber {
  std::optional<std::uint32_t> operator()(std::int16_t number) const { return WholeNumber(number); }
  std::optional<std::uint32_t> operator()(std::int32_t number) const { return WholeNumber(number); }
  std::optional<std::uint32_t> operator()(std::uint8_t number) const { return number; }
  std::optional<std::uint32_t> operator()(bool yes) const { return yes ? 0xFFFFFFFFu : 0u; }
  std::optional<std::uint32_t> operator()(float number) const { return WholeNumber(number); }
  std::optional<std::uint32_t> operator()(double number) const { return WholeNumber(number); }
  std::optional<std::uint32_t> operator()(VariantDate date) const { return WholeNumber(date.days); }
  std::optional<std::uint32_t> operator()(VariantCurrency amount) const { return ExactNumber(amount); }
  std::optional<std::uint32_t> operator()(const VariantDecimal& decimal) const {
    return ExactNumber(decimal);
  }
  template <class Other> std::optional<std::uint32_t> operator()(const Other&) const { return std::nullopt; }
};

struct ToBytes {
  AnsiCodePage& ansi;

  std::optional<Bytes> operator()(const VariantArray& bytes) const { return bytes; }
  std::optional<Bytes> operator()(std::uint8_t number) const { return BytesOf(number); }
  std::optional<Bytes> operator()(std::int16_t number) const {
    return BytesOf(static_cast<std::uint16_t>(number));
  }
  std::optional<Bytes> operator()(std::int32_t number) const {
    return BytesOf(static_cast<std::uint32_t>(number));
  }
  std::optional<Bytes> operator()(bool yes) const {
    return BytesOf(static_cast<std::uint16_t>(yes ? 0xFFFF : 0));
  }
  std::optional<Bytes> operator()(float number) const {
    return BytesOf(std::bit_cast<std::uint32_t>(number));
  }
  std::optional<Bytes> operator()(double number) const {
    return BytesOf(std::bit_cast<std::uint64_t>(number));
  }
  std::optional<Bytes> operator()(VariantDate date) const { return (*this)(date.days); }
  std::optional<Bytes> operator()(VariantCurrency amount) const {
    return BytesOf(static_cast<std::uint64_t>(amount.tenThousandths));
  }
  std::optional<Bytes> operator()(VariantError error) const { return (*this)(error.code); }
  std::optional<Bytes> operator()(const Text& text) const { return ansi.ToBytes(text); }
  // As automation lays decimals out: two reserved bytes, the places, the sign, the highest part, the others.
  std::optional<Bytes> operator()(const VariantDecimal& decimal) const {
    const std::byte sign{decimal.negative ? std::uint8_t{0x80} : std::uint8_t{0}};
    Bytes bytes{std::byte{}, std::byte{}, std::byte{decimal.places}, sign};
    for (const std::size_t part : {2u, 0u, 1u}) Append(bytes, decimal.whole[part]);
    return bytes;
  }
  template <class Other> std::optional<Bytes> operator()(const Other&) const { return std::nullopt; }
};

std::optional<Bytes> StringData(const Variant& value, AnsiCodePage& ansi) {
  if (std::holds_alternative<VariantArray>(value)) return std::nullopt;
  Bytes data = ansi.ToBytes(VariantText(value));
  data.push_back(std::byte{0});
  return data;
}

std::optional<Bytes> NumberData(const Variant& value) {
  const auto number = std::visit(ToNumber(), value);
  if (!number) return std::nullopt;
  return BytesOf(*number);
}

std::optional<Bytes> DataOfType(const Variant& value, std::uint32_t type, AnsiCodePage& ansi) {
  switch (type) {
    case kStringType: return StringData(value, ansi);
    case kNumberType: return NumberData(value);
    default: return std::visit(ToBytes{ansi}, value);
  }
}

std::int32_t NumberFrom(const Bytes& data) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < std::min(data.size(), kNumberBytes); ++i) {
    number |= std::to_integer<std::uint32_t>(data[i]) << (8 * i);
  }
  return static_cast<std::int32_t>(number);
}

}  // namespace

std::uint32_t TypeForVariant(const Variant& value) {
  const bool isNumber = std::holds_alternative<std::int16_t>(value) ||
                        std::holds_alternative<std::int32_t>(value) || std::holds_alternative<bool>(value);
  if (isNumber) return kNumberType;
  const bool isBinary =
      std::holds_alternative<std::uint8_t>(value) || std::holds_alternative<VariantArray>(value);
  return isBinary ? kBinaryType : kStringType;
}

std::optional<std::vector<std::byte>> DataFromVariant(const Variant& value, std::uint32_t type,
                                                      AnsiCodePage& ansi, RegistryError& error) {
  if (type != kStringType && type != kBinaryType && type != kNumberType) {
    RaiseRegistryError(error, kUnknownType);
    return std::nullopt;
  }
  auto data = DataOfType(value, type, ansi);
  if (!data) RaiseRegistryError(error, kTypeMismatch);
  return data;
}

Variant VariantFromData(const std::vector<std::byte>& data, std::uint32_t type, AnsiCodePage& ansi) {
  if (data.empty()) return VariantEmpty();
  if (type == kBinaryType) return data;
  if (type == kNumberType) return NumberFrom(data);
  return Text(UpToNul(ansi.ToText(data)));
}

}  // namespace pointalk
