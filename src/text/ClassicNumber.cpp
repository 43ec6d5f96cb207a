#include "text/ClassicNumber.h"

#include "model/Characters.h"
#include "text/CharConversion.h"
#include "text/HexadecimalNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <system_error>

namespace Units {

namespace {

/// A decimal number without a sign.
LeadingNumber readDecimal(std::string_view text) {
#if defined(__cpp_lib_to_chars)
  // Not a word for infinity or NaN.
  if (text.empty() || !(isDigit(text.front()) || text.front() == '.')) return {};
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  // Out of range, it does not say whether the number is too large or too small.
  if (error != std::errc::result_out_of_range)
    return {value, static_cast<std::size_t>(end - text.data())};
#endif
  return byCLibrary::readDecimal(text);
}

}  // namespace

LeadingNumber readClassicDouble(std::string_view text) {
  std::size_t start = countLeading<isWhiteSpace>(text);
  const bool signedText = start < text.size() && (text[start] == '+' || text[start] == '-');
  const bool negative = signedText && text[start] == '-';
  if (signedText) ++start;
  text.remove_prefix(start);
  LeadingNumber number;
  if (text.size() > 1 && (text[1] == 'x' || text[1] == 'X')) number = readHexadecimal(text);
  if (number.length == 0) number = readDecimal(text);
  if (number.length == 0) return {};
  return {negative ? -number.value : number.value, start + number.length};
}

LeadingNumber readClassicDigits(std::string_view text) {
  constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
  const std::size_t length = countLeading<isDigit>(text);
  std::int64_t value = 0;
  for (const char c : text.substr(0, length)) value = std::min(value * 10 + (c - '0'), largest);
  return {static_cast<double>(value), length};
}

void appendFixed(std::string& out, double value, unsigned char decimalPlaces) {
#if defined(__cpp_lib_to_chars)
  constexpr std::size_t mostWholeDigits = std::numeric_limits<double>::max_exponent10 + 1;
  constexpr std::size_t mostPlaces = std::numeric_limits<unsigned char>::max();
  char digits[mostWholeDigits + 1 + mostPlaces];  // tuning
  const auto written = std::to_chars(std::begin(digits), std::end(digits), std::fabs(value),
                                     std::chars_format::fixed, decimalPlaces);
  out.append(digits, static_cast<std::size_t>(written.ptr - digits));
#else
  byCLibrary::appendFixed(out, std::fabs(value), decimalPlaces);
#endif
}

void appendWhole(std::string& out, std::uint64_t value) {
  char digits[std::numeric_limits<std::uint64_t>::digits10 + 1];  // tuning
  const auto written = std::to_chars(std::begin(digits), std::end(digits), value);
  out.append(digits, static_cast<std::size_t>(written.ptr - digits));
}

}  // namespace Units
