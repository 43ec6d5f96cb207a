#include "display/Quotient.h"

#include "display/Rounding.h"
#include "text/ClassicNumber.h"

#include <algorithm>
#include <string>

namespace Units {

double quotient(Natural number, std::initializer_list<std::uint32_t> divisors) {
  std::uint64_t value = 0;
  double divisor = 1.0;
  for (const std::uint32_t each : divisors) divisor *= each;
  if (number.isShort(value)) return static_cast<double>(value) / divisor;
  // 60 places, and a digit that shows whether there are more, distinguish a quotient from every
  // number halfway between two doubles: it differs from each of them by more, if at all.
  constexpr int places = 60;
  for (int place = 0; place < places; place += 6) number.multiply(1000000);
  bool hasMore = false;
  for (const std::uint32_t each : divisors) hasMore = number.divide(each) != 0 || hasMore;
  std::string digits;
  number.appendDigits(digits);
  return readClassicDouble(digits + (hasMore ? "1e-61" : "0e-61")).value;
}

Natural naturalOf(std::string_view digits) {
  Natural number;
  while (!digits.empty()) {
    const std::size_t count = std::min<std::size_t>(digits.size(), 9);
    std::uint32_t limb = 0;
    for (const char digit : digits.substr(0, count))
      limb = limb * 10 + static_cast<std::uint32_t>(digit - '0');
    number.multiply(powersOfTen[count], limb);
    digits.remove_prefix(count);
  }
  return number;
}

}  // namespace Units
