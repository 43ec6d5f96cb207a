#include "tools/trelvon/csv/PlainNumber.h"

#include <charconv>
#include <cstdint>
#include <system_error>

namespace tool {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Digits without point and sign, and how many of them come after the point.
struct Decimal {
  std::uint64_t digits = 0;
  int count = 0;  ///< Of digits, without zeros at the front.
  int places = 0;
};

/// Takes digits from the front of a text. Returns whether there was any.
bool takeDigits(std::string_view& text, Decimal& decimal) {
  std::size_t length = 0;
  for (; length < text.size() && isDigit(text[length]); ++length) {
    decimal.digits = decimal.digits * 10 + static_cast<std::uint64_t>(text[length] - '0');
    if (decimal.digits != 0) ++decimal.count;
  }
  text.remove_prefix(length);
  return length > 0;
}

/// The nearest double of a number that may have an exponent. The whole text must be the number.
std::optional<double> readByLibrary([[maybe_unused]] std::string_view text) {
#if defined(__cpp_lib_to_chars)
  double value = 0.0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, value);
  if (read.ec == std::errc() && read.ptr == end) return value;
#endif
  return std::nullopt;
}

}  // namespace

std::optional<double> readPlainNumber(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  const bool isNegative = !text.empty() && text.front() == '-';
  if (isNegative) text.remove_prefix(1);

  const std::string_view whole = text;
  Decimal decimal;
  if (!takeDigits(text, decimal)) return std::nullopt;
  if (!text.empty() && text.front() == '.') {
    text.remove_prefix(1);
    const std::size_t before = text.size();
    if (!takeDigits(text, decimal)) return std::nullopt;
    decimal.places = static_cast<int>(before - text.size());
  }
  // Both numbers are exact in a double, so that their quotient is rounded once.
  constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                               1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                               1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  constexpr int exactDigits = 15, exactPlaces = 22;
  std::optional<double> value;
  if (text.empty() && decimal.count <= exactDigits && decimal.places <= exactPlaces)
    value = static_cast<double>(decimal.digits) / powers[decimal.places];
  else if (text.empty() || text.front() == 'e' || text.front() == 'E')
    value = readByLibrary(whole);
  if (value && isNegative) value = -*value;
  return value;
}

}  // namespace tool
