#pragma once

#include <cstdint>

namespace Units {

/// A decimal number: digits times 10 to a power.
struct SignificantDigits {
  std::uint64_t digits;
  int exponent;
};

/// Rounds a magnitude to significant digits, halves away from zero. For up to 15 digits, a number
/// that differs from a half only in the 16th digit, as results of sums and conversions do, counts
/// as a half. Zero has as many digits.
///
/// @param magnitude  finite.
/// @param count      1 to 17.
SignificantDigits significantDigits(double magnitude, int count);

}  // namespace Units
