#pragma once

#include "model/Powers.h"

#include <TrelvonUnits/PrimitivePowers.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace Units {

/// Brings the powers from `first` to the end into order and adds up the exponents of each unit. A
/// unit that cancels stays, with exponent 0. The sums may have more than 32 bits.
void combinePowers(Powers& powers, std::size_t first);

/// Exponents have 32 bits; a product or sum beyond stays at the limit. (Wrapped around, it could
/// come out as an exponent that units really have.)
inline std::int64_t saturate(std::int64_t exponent) {
  using Limits = std::numeric_limits<std::int32_t>;
  return std::clamp<std::int64_t>(exponent, Limits::min(), Limits::max());
}

PrimitivePowers toPrimitivePowers(const Powers& powers);

}  // namespace Units
