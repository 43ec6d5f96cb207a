#pragma once

#include "engine/PointerMap.h"
#include "model/Powers.h"
#include "model/RecordNode.h"
#include "model/ShortList.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace Units {

/// A number for each unit that tells most units with different powers apart: the sum, modulo 2^64,
/// of its exponents multiplied by the addresses of their primitive units. The sum of a unit follows
/// from those of its parents, so it takes much less time than reducing the unit.
///
/// It lives for one call, and looks at each unit once, and once more if others are derived from it.
/// Nothing recurses.
class PowerSums {
 public:
  static std::uint64_t of(const Powers& powers);

  /// Empty unless the unit is relative and none of its exponents can have been clamped to 32 bits.
  std::optional<std::uint64_t> of(const RecordNode<Unit>& unit);

 private:
  struct Sum {
    void add(const Sum& parent, int exponent);

    std::uint64_t value = 0;
    std::uint64_t size = 0;  // no exponent, and no part of one, is larger; at most `tooLarge`
  };
  struct Step {
    const RecordNode<Unit>* unit;
    std::size_t next;  // its parents before this one are added
    Sum sum;
  };

  static constexpr std::uint64_t tooLarge = std::uint64_t{1} << 31;

  std::optional<Sum> known(const RecordNode<Unit>& unit) const;
  Sum find(const RecordNode<Unit>& unit);

  PointerMap<RecordNode<Unit>, Sum> known_;  // of parents that are not simple
  ShortList<Step, 4> path_;
};

}  // namespace Units
