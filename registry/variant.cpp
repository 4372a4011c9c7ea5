#include "registry/variant.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "text/numbers.h"

namespace pointalk {
namespace {

// The digits with that many of them behind the point, and no zero at the end that could be left out.
Text WithPlaces(Text digits, std::size_t places, bool negative) {
  if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), u'0');
  if (places > 0) {
    digits.insert(digits.size() - places, 1, u'.');
    digits.erase(digits.find_last_not_of(u'0') + 1);
    if (digits.ends_with(u'.')) digits.pop_back();
  }
  return negative && digits != u"0" ? u"-" + digits : digits;
}

Text WholeDigits(std::array<std::uint32_t, 3> whole) {
  Text digits;
  do {
    std::uint64_t rest = 0;
    for (std::size_t i = whole.size(); i-- > 0;) {
      const std::uint64_t part = rest << 32 | whole[i];
      whole[i] = static_cast<std::uint32_t>(part / 10);
      rest = part % 10;
    }
    digits += static_cast<char16_t>(u'0' + rest);
  } while (whole != std::array<std::uint32_t, 3>{});
  std::reverse(digits.begin(), digits.end());
  return digits;
}

// The digits that a single is good for, so that a tenth is 0.1 and not what comes nearest to it.
Text SingleText(float number) {
  if (!std::isfinite(number)) return NumberText(0);
  std::array<char, 32> shown{};
  const auto end =
      std::to_chars(shown.data(), shown.data() + shown.size(), number, std::chars_format::scientific, 6).ptr;
  return NumberText(ReadNumber(Text(shown.data(), end)));
}

struct ToDecimalText {
  Text operator()(VariantEmpty) const { return {}; }
  Text operator()(VariantNull) const { return {}; }
  Text operator()(std::int16_t number) const { return WholeNumberText(number); }
  Text operator()(std::int32_t number) const { return WholeNumberText(number); }
  Text operator()(float number) const { return SingleText(number); }
  Text operator()(double number) const { return NumberText(number); }
  Text operator()(VariantCurrency amount) const {
    const bool negative = amount.tenThousandths < 0;
    const auto bits = static_cast<std::uint64_t>(amount.tenThousandths);
    const std::uint64_t magnitude = negative ? 0 - bits : bits;
    return WithPlaces(WholeDigits({static_cast<std::uint32_t>(magnitude & 0xFFFFFFFF),
                                   static_cast<std::uint32_t>(magnitude >> 32), 0}),
                      4, negative);
  }
  Text operator()(VariantDate date) const { return NumberText(date.days); }
  Text operator()(const Text& text) const { return text; }
  Text operator()(const VariantObject& object) const { return object.text; }
  Text operator()(VariantError error) const { return u"Error " + WholeNumberText(error.code); }
  Text operator()(bool yes) const { return yes ? u"True" : u"False"; }
  Text operator()(const VariantDecimal& decimal) const {
    return WithPlaces(WholeDigits(decimal.whole), decimal.places, decimal.negative);
  }
  Text operator()(VariantUnknown) const { return {}; }
  Text operator()(std::uint8_t number) const { return WholeNumberText(number); }
  Text operator()(const VariantArray&) const { return {}; }
};

}  // namespace

Text VariantText(const Variant& value) { return std::visit(ToDecimalText(), value); }

}  // namespace pointalk
