#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Units {

/// A number that a text begins with: its value and how many characters it takes. A length of 0 says
/// that there is none.
struct LeadingNumber {
  double value = 0.0;
  std::size_t length = 0;
};

/// The number that strtod reads in the classic locale, to the bit, whatever the process's locale:
/// white space (not only spaces), a sign, decimal or hexadecimal digits, an exponent if it is
/// complete. It ends where the view ends.
///
///   "1e-5"  1e-5    "1e-"    1, takes 1    " \t+.5"  0.5      "0x1.8p1"  3    "0x"  0, takes 1
///   "1e999" infinity          "1e-999"  0               ""  none       "."  none
///
/// Every number is rounded to the nearest double, the even one of two. (glibc 2.36 errs in the last
/// bit of some hexadecimal numbers below 2^-1022; this does not.)
///
/// The words for infinity and not-a-number are not read: no value text holds them, as it refuses
/// every number that is not finite.
LeadingNumber readClassicDouble(std::string_view text);

/// The digits that strtol reads at the very start of a text, in base 10 and 32 bits: beyond, the
/// value stays at 2147483647. No value text has white space or a sign there.
LeadingNumber readClassicDigits(std::string_view text);

/// Appends the magnitude of a number in fixed notation, every digit of it, as a stream in the
/// classic locale writes it: "12.50", "inf", "nan".
void appendFixed(std::string& out, double value, unsigned char decimalPlaces);

/// Appends a whole number in decimal.
void appendWhole(std::string& out, std::uint64_t value);

}  // namespace Units
