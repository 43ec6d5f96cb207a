#pragma once

#include "model/CompatiblePowers.h"
#include "model/RecordNode.h"
#include "model/ShortList.h"

#include <TrelvonUnits/PrimitivePowers.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace Units {

/// A primitive unit and its exponent.
using Power = ParentPower<Unit>;

/// Primitive units and their exponents as the engine computes with them: each unit once, ordered by
/// its address, which is quick to compare and, within an engine, as good an order as any.
using Powers = ShortList<Power, 8>;

/// Exponents have 32 bits; a product or sum beyond stays at the limit. (Wrapped around, it could
/// come out as an exponent that units really have.)
inline int saturate(std::int64_t exponent) {
  return static_cast<int>(std::clamp<std::int64_t>(exponent, std::numeric_limits<int>::min(),
                                                   std::numeric_limits<int>::max()));
}

/// Brings the powers from `first` to the end into order and adds up the exponents of each unit. A
/// unit that cancels stays, with exponent 0.
void sumUp(Powers& powers, std::size_t first);

PrimitivePowers toPrimitivePowers(const Powers& powers);

}  // namespace Units
