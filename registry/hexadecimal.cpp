#include "registry/hexadecimal.h"

#include <limits>

#include "text/letters.h"
#include "text/numbers.h"

namespace pointalk {
namespace {

constexpr TextView kPrefix = u"&H";
constexpr TextView kDigits = u"0123456789ABCDEF";
constexpr std::size_t kWordDigits = 4;
constexpr std::size_t kLongDigits = 8;

}  // namespace

Text HexadecimalText(std::int32_t number) {
  Text digits;
  auto rest = static_cast<std::uint32_t>(number);
  do {
    digits.insert(0, 1, kDigits[rest % 16]);
    rest /= 16;
  } while (rest != 0);
  return digits.insert(0, kPrefix);
}

std::optional<std::int16_t> ReadHexadecimal(TextView text) {
  if (!text.starts_with(kPrefix)) return std::nullopt;
  const TextView digits = text.substr(kPrefix.size());
  if (digits.empty() || digits.size() > kLongDigits) return std::nullopt;
  std::uint32_t bits = 0;
  for (const char16_t character : digits) {
    const std::size_t digit = kDigits.find(ToUpper(character));
    if (digit == TextView::npos) return std::nullopt;
    bits = bits * 16 + static_cast<std::uint32_t>(digit);
  }
  if (digits.size() <= kWordDigits) return static_cast<std::int16_t>(bits);
  const auto number = static_cast<std::int32_t>(bits);
  using Word = std::numeric_limits<std::int16_t>;
  if (number < Word::min() || number > Word::max()) return std::nullopt;
  return static_cast<std::int16_t>(number);
}

std::optional<std::int16_t> WordFromWhole(std::int32_t number) {
  return ReadHexadecimal(HexadecimalText(number));
}

std::optional<std::int16_t> WordFromNumber(double number) {
  const auto whole = RoundedToInt32(number);
  return whole ? WordFromWhole(*whole) : std::nullopt;
}

}  // namespace pointalk
