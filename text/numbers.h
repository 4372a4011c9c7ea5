// Numbers in texts, and the rounding of them. In every country they have a decimal point and no grouping.
#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace pointalk {

inline bool IsDigit(char16_t character) { return character >= u'0' && character <= u'9'; }

// The number at the beginning of a text: an optional sign, digits with at most one point, an optional
// exponent. Blanks, tabs and line feeds are skipped wherever they stand; what follows the number is ignored;
// 0 where there is none. A number beyond a double's range is infinite.
double ReadNumber(TextView text);

// The nearest whole number, halves to even.
double Rounded(double number);

// The nearest whole number, halves to even; no value when it does not fit.
std::optional<std::int32_t> RoundedToInt32(double number);

// In decimal digits, a minus sign in front of a negative number.
Text WholeNumberText(std::int64_t number);

// With at most 15 significant digits, no trailing zeros, no exponent; "0" for 0 and for what is not finite.
Text NumberText(double number);

// The percentage that a typed answer gives, limited to 0 to 100; no value for an answer that reads as
// 0 without holding the character "0", as an empty one does.
std::optional<std::int32_t> PercentAnswer(TextView answer);

}  // namespace pointalk
