#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Units {

/// The number at the beginning of a text: its value and its length in bytes. A length of 0 means
/// that there is none.
struct LeadingNumber {
  double value = 0.0;
  std::size_t length = 0;
};

/// Reads the number that strtod reads in the classic locale, to the bit, whatever the process's
/// locale: white space (not only spaces), a sign, decimal or hexadecimal digits, an exponent if it
/// is complete. Reads no further than the view.
///
///   "1e-5"  1e-5    "1e-"    1, takes 1    " \t+.5"  0.5      "0x1.8p1"  3    "0x"  0, takes 1
///   "1e999" infinity          "1e-999"  0               ""  none       "."  none
///
/// Rounds to the nearest double, ties to even. (glibc 2.36 is wrong in the last bit of some
/// hexadecimal numbers below 2^-1022; this is not.)
///
/// Does not read the words for infinity and NaN: value texts reject every number that is not
/// finite.
LeadingNumber readClassicDouble(std::string_view text);

/// Reads the decimal digits at the very start of a text, without white space or a sign. Values
/// beyond 32 bits become 2147483647, as with strtol.
LeadingNumber readClassicDigits(std::string_view text);

/// Appends the magnitude of a number in fixed notation with all its digits, as a stream in the
/// classic locale writes it: "12.50", "inf", "nan".
void appendFixed(std::string& out, double value, unsigned char decimalPlaces);

/// Appends a whole number in decimal.
void appendWhole(std::string& out, std::uint64_t value);

}  // namespace Units
