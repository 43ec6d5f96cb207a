#include "text/HexadecimalNumber.h"

#include "model/Characters.h"
#include "text/WrittenExponent.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>

namespace Units {

namespace {

constexpr std::string_view prefixes[] = {"0x", "0X"};

/// The value of a hexadecimal digit; 16 for all other bytes.
std::uint64_t digitValue(char c) {
  constexpr std::string_view digits = "0123456789abcdef0123456789ABCDEF";
  const std::size_t found = digits.find(c);
  return found == digits.npos ? 16 : found % 16;
}

/// significand * 2^exponent. If the significand has no room for more digits, its lowest bit is set
/// if any of them is not zero, which is all that rounding needs to know.
struct Significand {
  std::uint64_t bits = 0;
  std::int64_t exponent = 0;

  void take(std::uint64_t digit, bool isFraction) {
    const bool hasRoom = bits >> 60 == 0;
    bits = hasRoom ? bits << 4 | digit : bits | (digit != 0 ? 1 : 0);
    if (hasRoom && isFraction) exponent -= 4;
    if (!hasRoom && !isFraction) exponent += 4;
  }
};

double roundToDouble(Significand number) {
  if (number.bits == 0) return 0.0;
  for (; number.bits >> 63 == 0; number.bits <<= 1) --number.exponent;
  // Where the double's last bit stands: 2^lastPlace.
  constexpr std::int64_t leastPlace = DBL_MIN_EXP - DBL_MANT_DIG;
  const std::int64_t lastPlace = std::max(number.exponent + 64 - DBL_MANT_DIG, leastPlace);
  const std::int64_t dropped = lastPlace - number.exponent;  // bits, at least 11
  if (lastPlace > DBL_MAX_EXP) return HUGE_VAL;
  if (dropped > 64) return 0.0;

  std::uint64_t kept = dropped == 64 ? 0 : number.bits >> dropped;
  const std::uint64_t half = std::uint64_t{1} << (dropped - 1);
  const std::uint64_t rest = number.bits & (half | (half - 1));
  if (rest > half || (rest == half && (kept & 1) != 0)) ++kept;
  return std::ldexp(static_cast<double>(kept), static_cast<int>(lastPlace));
}

}  // namespace

LeadingNumber readHexadecimal(std::string_view text) {
  const std::string_view prefix = text.substr(0, 2);
  if (prefix != prefixes[0] && prefix != prefixes[1]) return {};
  Significand number;
  bool hasDigits = false;
  bool isFraction = false;
  std::size_t length = prefix.size();
  for (; length < text.size(); ++length) {
    const std::uint64_t digit = digitValue(text[length]);
    if (digit < 16) {
      hasDigits = true;
      number.take(digit, isFraction);
    } else if (text[length] == '.' && !isFraction) {
      isFraction = true;
    } else {
      break;
    }
  }
  if (!hasDigits) return {};
  const WrittenExponent exponent = readExponent(text.substr(length), 'p');
  number.exponent += exponent.value;
  return {roundToDouble(number), length + exponent.length};
}

}  // namespace Units
