#include "text/ClassicNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

namespace Units {

namespace {

bool isWhiteSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

char lowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool isHexadecimalDigit(char c) {
  return isDigit(c) || (lowerCase(c) >= 'a' && lowerCase(c) <= 'f');
}

std::size_t skipDigits(std::string_view text, std::size_t from, bool (*isWanted)(char)) {
  while (from < text.size() && isWanted(text[from])) ++from;
  return from;
}

/// How much of a text are digits with at most one point among them; 0 when there is no digit.
std::size_t mantissaLength(std::string_view text, bool (*isWanted)(char)) {
  const std::size_t whole = skipDigits(text, 0, isWanted);
  if (whole == text.size() || text[whole] != '.') return whole;
  const std::size_t all = skipDigits(text, whole + 1, isWanted);
  return all == 1 ? 0 : all;
}

/// How much of a text is an exponent with its letter; 0 when there is none or no digit in it.
std::size_t exponentLength(std::string_view text, char letter) {
  if (text.empty() || lowerCase(text[0]) != letter) return 0;
  const std::size_t sign = text.size() > 1 && (text[1] == '+' || text[1] == '-') ? 1 : 0;
  const std::size_t length = skipDigits(text, 1 + sign, isDigit);
  return length == 1 + sign ? 0 : length;
}

/// The value of an exponent, which may be missing. It stops growing where no mantissa is long
/// enough to make up for it.
std::int64_t exponentValue(std::string_view exponent) {
  constexpr std::int64_t enough = std::int64_t{1} << 55;
  std::int64_t value = 0;
  for (const char c : exponent)
    if (isDigit(c)) value = std::min(value * 10 + (c - '0'), enough);
  return exponent.size() > 1 && exponent[1] == '-' ? -value : value;
}

/// The place of the first digit that is not 0: 1 for 12.5, -2 for 0.05.
std::int64_t leadingPlace(std::string_view mantissa) {
  const auto first = static_cast<std::int64_t>(mantissa.find_first_not_of("0."));
  const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
  return first < point ? point - first - 1 : point - first;
}

struct Notation {
  bool (*isDigit)(char);
  char exponentLetter;
  std::chars_format format;
  int exponentsPerPlace;  // what a digit one place to the left adds to the exponent
};

constexpr Notation decimal = {isDigit, 'e', std::chars_format::general, 1};
constexpr Notation hexadecimal = {isHexadecimalDigit, 'p', std::chars_format::hex, 4};

LeadingNumber readUnsigned(std::string_view text, const Notation& notation) {
  const std::size_t mantissa = mantissaLength(text, notation.isDigit);
  if (mantissa == 0) return {};
  const std::size_t exponent = exponentLength(text.substr(mantissa), notation.exponentLetter);
  const std::size_t length = mantissa + exponent;
  double value = 0.0;
  const auto read = std::from_chars(text.data(), text.data() + length, value, notation.format);
  if (read.ec == std::errc()) return {value, length};

  // No double is near. from_chars does not say on which side, but strtod does.
  const std::int64_t place = leadingPlace(text.substr(0, mantissa)) * notation.exponentsPerPlace +
                             exponentValue(text.substr(mantissa, exponent));
  return {place > 0 ? HUGE_VAL : 0.0, length};
}

LeadingNumber readHexadecimal(std::string_view text) {
  if (text.size() < 2 || text[0] != '0' || lowerCase(text[1]) != 'x') return {};
  LeadingNumber number = readUnsigned(text.substr(2), hexadecimal);
  if (number.length > 0) number.length += 2;
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
  const std::size_t length = skipDigits(text, 0, isDigit);
  std::int64_t value = 0;
  for (const char c : text.substr(0, length)) value = std::min(value * 10 + (c - '0'), largest);
  return {static_cast<double>(value), length};
}

}  // namespace Units
