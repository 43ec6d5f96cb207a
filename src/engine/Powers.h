#pragma once

#include "model/Powers.h"

#include <TrelvonUnits/PrimitivePowers.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace Units {

/// Sorts the powers from `first` to the end and adds up the exponents of each unit. A unit that
/// cancels stays, with exponent 0. Sums may exceed 32 bits.
void combinePowers(Powers& powers, std::size_t first);

/// Clamps a product or sum of exponents, so that two of them can be added. A sum is exact if its
/// terms cancel to fewer bits.
inline std::int64_t clampTerm(std::int64_t exponent) {
  constexpr std::int64_t largest = (std::int64_t{1} << 62) - 1;
  return std::clamp(exponent, -largest, largest);
}

/// Clamps an exponent of a reduced unit to 32 bits. (Wraparound could produce an exponent that units
/// really have.)
inline std::int64_t saturate(std::int64_t exponent) {
  using Limits = std::numeric_limits<std::int32_t>;
  return std::clamp<std::int64_t>(exponent, Limits::min(), Limits::max());
}

PrimitivePowers toPrimitivePowers(const Powers& powers);

}  // namespace Units
