#include "engine/Reduction.h"

#include "model/RecordAccess.h"

#include <TrelvonUnits/Exceptions.h>

#include <cmath>
#include <cstdint>
#include <utility>

namespace Units {

namespace {

/// pow(base, exponent), which is the base or 1 to the bit where it is not computed here.
double power(double base, int exponent) {
  return exponent == 1 || base == 1.0 ? base : std::pow(base, static_cast<double>(exponent));
}

double ownValue(const RecordNode<Factor>& factor) {
  return RecordAccess::factor(RecordAccess::factorComponent(*factor.record));
}

/// Adds powers, each `exponent` times, to the end of a list. Those of 0 are gone.
template <class SomePowers>
void append(Powers& powers, const SomePowers& more, int exponent) {
  for (const auto& [primitive, power] : more)
    if (power != 0) powers.emplace_back(primitive, saturate(std::int64_t{power} * exponent));
}

}  // namespace

ReducedUnit Reducer::reduce(const RecordNode<Unit>& unit) {
  const auto* const absolute = RecordAccess::absolute(*unit.record);
  const RecordNode<Unit>& relative = absolute ? *unit.parents.front().parent : unit;
  ReducedUnit reduced{1.0, absolute ? RecordAccess::offset(*absolute) : 0.0, Powers(&memory_)};
  if (relative.isSimple) {  // no way down: its parents' factors are all 1
    reduced.factor = ownFactor(relative);
    reduced.powers.reserve(relative.parents.size());
    append(reduced.powers, relative.parents, 1);
    sumUp(reduced.powers, 0);
  } else {
    reduced.factor = reduceRelative(relative);
    reduced.powers.assign(powers_.begin(), powers_.end());
    powers_.clear();
  }
  return reduced;
}

/// The factor of a relative unit, whose powers are left in `powers_`.
double Reducer::reduceRelative(const RecordNode<Unit>& root) {
  // Room for nearly all units that there are, of the reducer's own memory.
  path_.reserve(8);
  powers_.reserve(24);
  enter(root);
  while (true) {
    if (path_.back().next < path_.back().unit->parents.size()) {
      takeNextParent();
    } else {
      const double factor = finish();
      if (path_.empty()) return factor;
    }
  }
}

void Reducer::enter(const RecordNode<Unit>& unit) {
  if (RecordAccess::absolute(*unit.record))
    throw IncompatibleUnitsException("Parent unit " + RecordAccess::typeId(*unit.record) +
                                     " is absolute, but all parent units must be relative.");
  path_.push_back({&unit, ownFactor(unit), 0, powers_.size()});
}

/// Multiplies the next parent of the last unit on the path in, or puts it on the path.
void Reducer::takeNextParent() {
  UnitStep& step = path_.back();
  const auto& [parent, exponent] = step.unit->parents[step.next];
  if (parent->isSimple) {  // reduced as quickly as remembered
    ++step.next;
    step.factor = power(ownFactor(*parent), exponent) * step.factor;
    append(powers_, parent->parents, exponent);
    return;
  }
  const auto known = units_.find(parent);
  if (known == units_.end()) return enter(*parent);
  ++step.next;
  step.factor = power(known->second.factor, exponent) * step.factor;
  append(powers_, known->second.powers, exponent);
}

/// Takes the last unit, which has all its parents, off the path and remembers it, unless it is the
/// one asked for: that one leaves its powers in `powers_`.
/// @return  its factor.
double Reducer::finish() {
  const UnitStep step = path_.back();
  sumUp(powers_, step.firstPower);
  path_.pop_back();
  if (path_.empty()) return step.factor;

  const auto first = powers_.begin() + static_cast<std::ptrdiff_t>(step.firstPower);
  units_.emplace(step.unit, RelativeUnit{step.factor, Powers(first, powers_.end(), &memory_)});
  powers_.erase(first, powers_.end());
  return step.factor;
}

/// The factor of a unit beside those of its parents.
double Reducer::ownFactor(const RecordNode<Unit>& unit) {
  const auto* const derived = RecordAccess::derived(*unit.record);
  if (!derived || wanted_ == Wanted::PowersAlone) return 1.0;
  double factor = RecordAccess::factor(RecordAccess::factorComponent(*derived));
  for (const auto& [parent, exponent] : unit.parentFactors)
    factor *= power(valueOf(*parent), exponent);
  return factor;
}

double Reducer::valueOf(const RecordNode<Factor>& root) {
  if (root.parents.empty()) return ownValue(root);
  const auto known = factors_.find(&root);
  if (known != factors_.end()) return known->second;

  factorPath_.push_back({&root, ownValue(root), 0});
  while (true) {
    FactorStep& step = factorPath_.back();
    const auto& parents = step.factor->parents;
    if (step.next < parents.size()) {
      const auto& [parent, exponent] = parents[step.next];
      const auto found = factors_.find(parent);
      if (!parent->parents.empty() && found == factors_.end()) {
        factorPath_.push_back({parent, ownValue(*parent), 0});
      } else {
        step.value *= power(parent->parents.empty() ? ownValue(*parent) : found->second, exponent);
        ++step.next;
      }
      continue;
    }
    const double value = step.value;
    factors_.emplace(step.factor, value);
    factorPath_.pop_back();
    if (factorPath_.empty()) return value;
  }
}

}  // namespace Units
