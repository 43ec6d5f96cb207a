#include "display/SignificantDigits.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string_view>

namespace Units {

namespace {

constexpr int mostDigits = 17;
constexpr int tidyDigits = 15;

/// The number in scientific notation: a digit, a mark, 16 digits, and the exponent.
std::string_view writeScientific(double magnitude, char (&text)[64]) {
#if defined(__cpp_lib_to_chars)
  const auto written = std::to_chars(std::begin(text), std::end(text), magnitude,
                                     std::chars_format::scientific, mostDigits - 1);
  return {text, static_cast<std::size_t>(written.ptr - text)};
#else
  // The mark is the locale's, of any length, and is passed over.
  return {text, static_cast<std::size_t>(
                    std::snprintf(text, sizeof text, "%.*e", mostDigits - 1, magnitude))};
#endif
}

void roundTo(SignificantDigits& number, int has, int count) {
  if (count >= has) return;
  std::uint64_t unit = 1;
  for (int dropped = has; dropped > count; --dropped) unit *= 10;
  number.digits = (number.digits + unit / 2) / unit;
  number.exponent += has - count;
}

}  // namespace

SignificantDigits significantDigits(double magnitude, int count) {
  if (magnitude == 0.0) return {0, 1 - count};
  char buffer[64] = {};
  const std::string_view text = writeScientific(magnitude, buffer);
  const std::size_t mark = text.find('e');
  SignificantDigits number = {static_cast<std::uint64_t>(text[0] - '0'), 0};
  for (const char digit : text.substr(mark - (mostDigits - 1), mostDigits - 1))
    number.digits = number.digits * 10 + static_cast<std::uint64_t>(digit - '0');
  number.exponent = std::atoi(text.data() + mark + 1) - (mostDigits - 1);
  const int first = count <= tidyDigits ? tidyDigits : mostDigits;
  roundTo(number, mostDigits, first);
  roundTo(number, first, count);  // 10 to the power `count`, rounded up, has a digit more, a 0
  std::uint64_t tooMany = 1;
  for (int digit = 0; digit < count; ++digit) tooMany *= 10;
  if (number.digits >= tooMany) {
    number.digits /= 10;
    ++number.exponent;
  }
  return number;
}

}  // namespace Units
