#include "engine/PowerSums.h"

#include <algorithm>
#include <cstdlib>

namespace Units {

namespace {

std::uint64_t addressOf(const RecordNode<Unit>* unit) {
  return reinterpret_cast<std::uintptr_t>(unit);
}

}  // namespace

void PowerSums::Sum::add(const Sum& parent, int exponent) {
  const std::int64_t times = exponent;
  value += parent.value * static_cast<std::uint64_t>(times);
  size = std::min(tooLarge, size + parent.size * static_cast<std::uint64_t>(std::abs(times)));
}

std::uint64_t PowerSums::of(const Powers& powers) {
  std::uint64_t sum = 0;
  for (const auto& [unit, exponent] : powers)
    sum += addressOf(unit) * static_cast<std::uint64_t>(exponent);
  return sum;
}

std::optional<std::uint64_t> PowerSums::of(const RecordNode<Unit>& unit) {
  if (unit.isAbsolute) return std::nullopt;
  const auto before = known(unit);
  const Sum sum = before ? *before : find(unit);
  return sum.size < tooLarge ? std::optional<std::uint64_t>(sum.value) : std::nullopt;
}

/// Empty if the parents of the unit must be looked at first. The parents of a simple unit are
/// primitive.
std::optional<PowerSums::Sum> PowerSums::known(const RecordNode<Unit>& unit) const {
  if (unit.isAbsolute) return Sum{0, tooLarge};  // reducing the unit that it is a parent of fails
  if (unit.isSimple) {
    Sum sum;
    for (const auto& [parent, exponent] : unit.parents) sum.add({addressOf(parent), 1}, exponent);
    return sum;
  }
  const Sum* const found = known_.find(&unit);
  return found ? std::optional<Sum>(*found) : std::nullopt;
}

/// The sum of a unit that is not known.
PowerSums::Sum PowerSums::find(const RecordNode<Unit>& unit) {
  path_.push_back({&unit, 0, {}});
  while (true) {
    Step& step = path_.back();
    if (step.next < step.unit->parents.size()) {
      const auto& [parent, exponent] = step.unit->parents[step.next];
      if (const auto sum = known(*parent)) {
        step.sum.add(*sum, exponent);
        ++step.next;
      } else {
        path_.push_back({parent, 0, {}});
      }
    } else {
      const Step done = step;
      path_.pop_back();
      if (path_.empty()) return done.sum;
      known_.insert(done.unit, done.sum);
    }
  }
}

}  // namespace Units
