// The reading and writing is left to from_chars and to_chars, which know no locale.
#include "text/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>
#include <tuple>

namespace pointalk {
namespace {

// The text without the characters that are skipped, as far as it may be a number at all.
std::string NumberCharacters(TextView text) {
  std::string characters;
  for (const char16_t character : text) {
    if (character == u' ' || character == u'\t' || character == u'\n') continue;
    const bool may = IsDigit(character) || character == u'+' || character == u'-' || character == u'.' ||
                     character == u'e' || character == u'E';
    if (!may) break;
    characters.push_back(static_cast<char>(character));
  }
  return characters;
}

// Whether a number beyond a double's range is too small for it and not too large: by the place of its first
// digit, hundreds of places away from the point.
bool IsTooSmall(std::string_view number) {
  const auto mark = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, mark);
  const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
  const auto first = static_cast<std::int64_t>(digits.find_first_of("123456789"));
  std::string_view power = number.substr(std::min(mark + 1, number.size()));
  if (power.starts_with('+')) power.remove_prefix(1);
  std::int64_t exponent = 0;
  const auto error = std::from_chars(power.data(), power.data() + power.size(), exponent).ec;
  if (error == std::errc::result_out_of_range) return power.starts_with('-');
  return exponent < first - point;
}

}  // namespace

double ReadNumber(TextView text) {
  const std::string characters = NumberCharacters(text);
  const char* first = characters.data();
  const char* const last = first + characters.size();
  const bool negative = first != last && *first == '-';
  if (first != last && (*first == '-' || *first == '+')) ++first;
  if (first == last || *first == '-') return 0;  // from_chars would take a second sign
  double number = 0;
  const auto [end, error] = std::from_chars(first, last, number, std::chars_format::general);
  if (error == std::errc::invalid_argument) return 0;
  if (error == std::errc::result_out_of_range) {
    const bool tooSmall = IsTooSmall({first, static_cast<std::size_t>(end - first)});
    number = tooSmall ? 0 : std::numeric_limits<double>::infinity();
  }
  return negative ? -number : number;
}

double Rounded(double number) {
  const double below = std::floor(number);
  const double rest = number - below;
  if (rest < 0.5) return below;
  if (rest > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

std::optional<std::int32_t> RoundedToInt32(double number) {
  const double whole = Rounded(number);
  if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
        whole <= std::numeric_limits<std::int32_t>::max())) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(whole);
}

Text WholeNumberText(std::int64_t number) {
  std::array<char, 24> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return Text(digits.data(), end);
}

Text NumberText(double number) {
  if (!std::isfinite(number) || number == 0) return u"0";
  std::array<char, 40> scientific{};
  const auto end = std::to_chars(scientific.data(), scientific.data() + scientific.size(), std::fabs(number),
                                 std::chars_format::scientific, 14)
                       .ptr;
  const std::string_view shown(scientific.data(), end);  // d.dddde+xx
  const auto mark = shown.find('e');
  std::string digits(shown.substr(0, 1));
  digits += shown.substr(2, mark - 2);
  digits.erase(digits.find_last_not_of('0') + 1);
  int exponent = 0;
  const bool small = shown[mark + 1] == '-';
  // What to_chars wrote can be read.
  std::ignore = std::from_chars(shown.data() + mark + 2, shown.data() + shown.size(), exponent);
  std::string decimal;
  if (small && exponent > 0) {
    decimal = "0." + std::string(static_cast<std::size_t>(exponent) - 1, '0') + digits;
  } else {
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() < whole) digits.append(whole - digits.size(), '0');
    decimal = digits.substr(0, whole);
    if (digits.size() > whole) decimal += "." + digits.substr(whole);
  }
  Text text = number < 0 ? u"-" : u"";
  return text.append(decimal.begin(), decimal.end());
}

std::optional<std::int32_t> PercentAnswer(TextView answer) {
  const double number = ReadNumber(answer);
  if (number == 0 && answer.find(u'0') == TextView::npos) return std::nullopt;
  return static_cast<std::int32_t>(std::clamp(Rounded(number), 0.0, 100.0));
}

}  // namespace pointalk
