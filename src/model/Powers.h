#pragma once

#include "model/RecordNode.h"
#include "model/ShortList.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace Units {

/// Clamps a product or sum of exponents to 62 bits, so that two of them can be added. A sum is exact
/// unless a term or partial sum is clamped.
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

/// A primitive unit and its exponent, in more bits than a reduced unit has.
struct Power {
  const RecordNode<Unit>* unit;
  std::int64_t exponent;
};

/// Primitive units and their exponents. Each unit occurs once. The order is that of node addresses,
/// which are fast to compare and unique within an engine.
using Powers = ShortList<Power, 8>;

}  // namespace Units
