#pragma once

#include <cstdint>

namespace Units {

/// A decimal number: digits times 10 to a power.
struct SignificantDigits {
  std::uint64_t digits;
  int exponent;
};

/// Rounds a magnitude to significant digits, halves away from zero. Up to 15 digits, what differs from
/// a half in the 16th alone, as sums and conversions do, is a half. Zero has as many digits.
///
/// @param magnitude  finite.
/// @param count      1 to 17.
SignificantDigits significantDigits(double magnitude, int count);

}  // namespace Units
