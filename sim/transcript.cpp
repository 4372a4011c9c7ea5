#include "sim/transcript.h"

#include <array>
#include <charconv>

#include "sim/utf8.h"

namespace pointalk::sim {
namespace {

constexpr int kSignificantDigits = 15;

// The digits of a number that is not 0, and where the point stands among them.
struct Digits {
  std::string digits;  // the first is not 0, nor is the last
  int point = 0;       // digits before the point; 0 or below: zeros stand between the point and the digits
};

Digits DigitsOf(double magnitude) {
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                 std::chars_format::scientific, kSignificantDigits - 1);
  const std::string_view written(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  const std::size_t e = written.find('e');
  int exponent = 0;
  const std::size_t afterSign = written[e + 1] == '+' ? e + 2 : e + 1;
  std::from_chars(written.data() + afterSign, written.data() + written.size(), exponent);
  Digits result{std::string(1, written[0]), exponent + 1};
  result.digits += written.substr(2, e - 2);
  result.digits.erase(result.digits.find_last_not_of('0') + 1);
  return result;
}

}  // namespace

void Transcript::Write(TextView text) { AppendQuoted(text, text_); }

void Transcript::Write(Bare word) { AppendUtf8(word.text, text_); }

void Transcript::Write(HexadecimalBytes bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  text_ += '"';
  const std::size_t begin = text_.size();
  text_.resize(begin + 2 * bytes.value.size());
  char* digit = text_.data() + begin;
  for (const std::byte byte : bytes.value) {
    *digit++ = kDigits[std::to_integer<unsigned>(byte) / 16];
    *digit++ = kDigits[std::to_integer<unsigned>(byte) % 16];
  }
  text_ += '"';
}

void Transcript::Write(Hexadecimal number) {
  std::array<char, 8> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number.value, 16);
  text_ += "0x";
  text_.append(buffer.data(), end.ptr);
}

void Transcript::Write(Number number) {
  if (number.value == 0) {
    text_ += '0';
    return;
  }
  const auto [digits, point] = DigitsOf(number.value < 0 ? -number.value : number.value);
  if (number.value < 0) text_ += '-';
  if (point <= 0) {
    text_ += "0.";
    text_.append(static_cast<std::size_t>(-point), '0');
    text_ += digits;
    return;
  }
  const auto whole = static_cast<std::size_t>(point);
  text_ += digits.substr(0, whole);
  if (digits.size() < whole) text_.append(whole - digits.size(), '0');
  if (digits.size() > whole) text_.append(1, '.').append(digits, whole);
}

}  // namespace pointalk::sim
