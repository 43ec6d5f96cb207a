#pragma once

#include "display/NumberForm.h"

#include <array>
#include <cstdint>
#include <string>

namespace Units {

/// A rounded magnitude, split into its parts.
struct RoundedNumber {
  bool isNegative = false;
  std::string whole;  // digits of the first part
  std::array<std::uint32_t, CompositeLayout::maximumComponents - 1> parts = {};  // of the others
  std::uint64_t fraction = 0;     // of the last part: decimal places, or a numerator
  int places = 0;                 // digits of the fraction
  std::uint32_t denominator = 0;  // of a fraction in lowest terms
};

/// 10 to the powers up to 9.
extern const std::array<std::uint32_t, 10> powersOfTen;

/// Rounds a value and splits it.
///
/// The steps of the last part are counted in a whole number, which is then divided with remainder.
/// So what is left for a part is always less than one of the part before it, and nothing is ever
/// carried.
///
/// @param value  finite.
RoundedNumber roundNumber(double value, const NumberForm& form);

}  // namespace Units
