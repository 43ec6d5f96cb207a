#pragma once

#include "model/RecordNode.h"
#include "model/ShortList.h"

#include <cstdint>

namespace Units {

/// A primitive unit and its exponent, with room for sums of many exponents of 32 bits.
struct Power {
  const RecordNode<Unit>* unit;
  std::int64_t exponent;
};

/// Primitive units and their exponents: each unit once, ordered by the address of its node, which
/// is quick to compare and, within an engine, as good an order as any.
using Powers = ShortList<Power, 8>;

}  // namespace Units
