#pragma once

#include "model/RecordNode.h"
#include "model/ShortList.h"

#include <cstdint>

namespace Units {

/// A primitive unit and its exponent, in more bits than a reduced unit has.
struct Power {
  const RecordNode<Unit>* unit;
  std::int64_t exponent;
};

/// Primitive units and their exponents. Each unit occurs once. The order is that of node addresses,
/// which are fast to compare and unique within an engine.
using Powers = ShortList<Power, 8>;

}  // namespace Units
