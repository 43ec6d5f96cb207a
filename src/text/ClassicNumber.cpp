#include "text/ClassicNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <system_error>

namespace Units {

namespace {

bool isWhiteSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool beginsDecimal(char c) { return isDigit(c) || c == '.'; }

bool beginsHexadecimal(char c) {
  return beginsDecimal(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

struct Notation {
  std::chars_format format;
  bool (*mayBegin)(char c);       // whether a number may begin so
  std::string_view exponentMark;  // in both cases
  int exponentPerDigit;           // what one digit more before the point adds to the exponent
};

constexpr Notation decimal = {std::chars_format::general, beginsDecimal, "eE", 1};
constexpr Notation hexadecimal = {std::chars_format::hex, beginsHexadecimal, "pP", 4};

/// Whether a number too far from 1 for any double is too large, rather than too small.
bool isTooLarge(std::string_view number, const Notation& notation) {
  const std::size_t mark = std::min(number.find_first_of(notation.exponentMark), number.size());
  const std::string_view mantissa = number.substr(0, mark);
  const auto first = static_cast<std::int64_t>(mantissa.find_first_not_of("0."));
  const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));

  // The exponent stops growing where no mantissa is long enough to make up for it.
  constexpr std::int64_t enough = std::int64_t{1} << 55;
  std::int64_t exponent = 0;
  for (const char c : number.substr(mark))
    if (isDigit(c)) exponent = std::min(exponent * 10 + (c - '0'), enough);
  if (number.find('-') != std::string_view::npos) exponent = -exponent;
  return (point - first) * notation.exponentPerDigit + exponent > 0;
}

LeadingNumber readUnsigned(std::string_view text, const Notation& notation) {
  if (text.empty() || !notation.mayBegin(text.front())) return {};
  double value = 0.0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), value, notation.format);
  const auto length = static_cast<std::size_t>(end - text.data());
  if (error == std::errc::result_out_of_range)
    value = isTooLarge(text.substr(0, length), notation) ? HUGE_VAL : 0.0;
  return {value, length};
}

LeadingNumber readHexadecimal(std::string_view text) {
  constexpr std::size_t markLength = 2;
  if (text.size() < markLength || text[0] != '0' || (text[1] != 'x' && text[1] != 'X')) return {};
  text.remove_prefix(markLength);
  LeadingNumber number = readUnsigned(text, hexadecimal);
  // libstdc++ takes "p+-5" for an exponent, strtod takes none of it.
  const std::size_t signs = text.substr(0, number.length).find("+-");
  if (signs != std::string_view::npos)
    number = readUnsigned(text.substr(0, signs - 1), hexadecimal);
  if (number.length > 0) number.length += markLength;
  return number;
}

}  // namespace

LeadingNumber readClassicDouble(std::string_view text) {
  std::size_t start = 0;
  while (start < text.size() && isWhiteSpace(text[start])) ++start;
  const bool signedText = start < text.size() && (text[start] == '+' || text[start] == '-');
  const bool negative = signedText && text[start] == '-';
  if (signedText) ++start;
  text.remove_prefix(start);
  LeadingNumber number = readHexadecimal(text);
  if (number.length == 0) number = readUnsigned(text, decimal);
  if (number.length == 0) return {};
  return {negative ? -number.value : number.value, start + number.length};
}

LeadingNumber readClassicDigits(std::string_view text) {
  constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
  std::int64_t value = 0;
  std::size_t length = 0;
  for (; length < text.size() && isDigit(text[length]); ++length)
    value = std::min(value * 10 + (text[length] - '0'), largest);
  return {static_cast<double>(value), length};
}

void appendFixed(std::string& out, double value, unsigned char decimalPlaces) {
  constexpr std::size_t mostWholeDigits = std::numeric_limits<double>::max_exponent10 + 1;
  constexpr std::size_t mostPlaces = std::numeric_limits<unsigned char>::max();
  char digits[mostWholeDigits + 1 + mostPlaces];  // tuning
  const auto written = std::to_chars(std::begin(digits), std::end(digits), std::fabs(value),
                                     std::chars_format::fixed, decimalPlaces);
  out.append(digits, static_cast<std::size_t>(written.ptr - digits));
}

void appendWhole(std::string& out, std::uint64_t value) {
  char digits[std::numeric_limits<std::uint64_t>::digits10 + 1];  // tuning
  const auto written = std::to_chars(std::begin(digits), std::end(digits), value);
  out.append(digits, static_cast<std::size_t>(written.ptr - digits));
}

}  // namespace Units
