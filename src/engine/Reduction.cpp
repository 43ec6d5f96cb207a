#include "engine/Reduction.h"

#include "model/RecordAccess.h"

#include <TrelvonUnits/Exceptions.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace Units {

namespace {

// Results differ on a machine that evaluates doubles at higher precision. It needs other options
// (for 32-bit x86, -msse2 -mfpmath=sse).
static_assert(std::is_same_v<std::double_t, double>);

/// pow(base, exponent). The shortcuts return the same bits.
double power(double base, int exponent) {
  return exponent == 1 || base == 1.0 ? base : std::pow(base, static_cast<double>(exponent));
}

/// Appends the powers of a simple unit, multiplied by `exponent`.
void append(Powers& powers, const RecordNode<Unit>& simple, int exponent) {
  powers.reserve(powers.size() + simple.parents.size());
  Power* target = powers.end();
  for (const auto& [unit, own] : simple.parents)
    *target++ = {unit, clampTerm(std::int64_t{own} * exponent)};
  powers.setEnd(target);
}

/// Writes powers, multiplied by `exponent`, to `target`. Omits those with exponent 0.
/// @return  the end of the output.
Power* multiply(const Power* first, const Power* last, int exponent, Power* target) {
  for (; first != last; ++first)
    if (first->exponent != 0) *target++ = {first->unit, clampTerm(first->exponent * exponent)};
  return target;
}

/// Multiplies the powers from index `first` on by `exponent`, in place; as above.
void raiseFrom(Powers& powers, std::size_t first, int exponent) {
  Power* const begin = powers.begin() + first;
  powers.setEnd(multiply(begin, powers.end(), exponent, begin));
}

void saturateFrom(Powers& powers, std::size_t first) {
  for (Power* power = powers.begin() + first; power != powers.end(); ++power)
    power->exponent = saturate(power->exponent);
}

/// Whether a unit is relative and has few parents, all of them simple. Reducing it is as fast as
/// storing it, and needs no path.
bool isShallow(const RecordNode<Unit>& unit) {
  constexpr std::size_t maxParents = 8;                                              // tuning
  const bool isLong = unit.parents.size() + unit.parentFactors.size() > maxParents;  // tuning
  return !unit.isAbsolute && !isLong &&
         std::all_of(unit.parents.begin(), unit.parents.end(),
                     [](const auto& power) { return power.parent->isSimple; });
}

}  // namespace

ReducedUnit Reducer::reduce(const RecordNode<Unit>& unit) {
  ReducedUnit reduced{1.0, 0.0, {}};
  const RecordNode<Unit>* relative = &unit;
  if (unit.isAbsolute) {
    reduced.offset = RecordAccess::offset(*RecordAccess::absolute(unit.record));
    relative = unit.parents[0].parent;
  }
  if (relative->isSimple) {  // no search needed: its parents' factors are all 1
    reduced.factor = ownFactor(*relative);
    append(reduced.powers, *relative, 1);
    combinePowers(reduced.powers, 0);
  } else if (isShallow(*relative)) {
    reduced.factor = reduceShallow(*relative, reduced.powers);
  } else if (const KnownUnit* const known = units_.find(relative)) {
    reduced.factor = known->factor;
    const Power* const first = knownPowers_.begin() + known->firstPower;
    reduced.powers.append(first, first + known->powerCount);  // including exponents of 0
  } else {
    reduced.factor = reduceRelative(*relative, reduced.powers);
  }
  return reduced;
}

/// Appends the powers of a shallow unit.
/// @return  the unit's factor.
double Reducer::reduceShallow(const RecordNode<Unit>& unit, Powers& powers) {
  const std::size_t before = powers.size();
  double factor = ownFactor(unit);
  for (const auto& [parent, exponent] : unit.parents) {
    factor = power(ownFactor(*parent), exponent) * factor;
    append(powers, *parent, exponent);
  }
  work_ += powers.size() - before;  // tuning
  combinePowers(powers, before);
  saturateFrom(powers, before);
  return factor;
}

/// @param powers  empty; receives the unit's powers.
/// @return  the unit's factor.
double Reducer::reduceRelative(const RecordNode<Unit>& unit, Powers& powers) {
  enter(unit, powers);
  while (true) {
    if (path_.back().next < path_.back().unit->parents.size()) {
      takeNextParent(powers);
    } else {
      const double factor = finish(powers);
      if (path_.empty()) return factor;
    }
  }
}

/// Pushes a unit onto the path. Its powers will follow those of the units before it.
void Reducer::enter(const RecordNode<Unit>& unit, const Powers& powers) {
  if (unit.isAbsolute)
    throw IncompatibleUnitsException("Parent unit " + RecordAccess::typeId(unit.record) +
                                     " is absolute, but all parent units must be relative.");
  const std::size_t workBefore = work_++;  // tuning: a chain is work, too
  path_.push_back(
      {&unit, ownFactor(unit), 0, powers.size(), powers.size() + maxUncombined, workBefore});
}

/// Multiplies the next parent into the last unit on the path, or pushes the parent onto the path.
void Reducer::takeNextParent(Powers& powers) {
  UnitStep& step = path_.back();
  combineIfMany(step, powers);
  const auto& [parent, exponent] = step.unit->parents[step.next];
  const std::size_t before = powers.size();
  double factor = 1.0;
  if (parent->isSimple) {  // reducing it is as fast as a lookup
    factor = ownFactor(*parent);
    append(powers, *parent, exponent);
  } else if (isShallow(*parent)) {
    factor = reduceShallow(*parent, powers);
    raiseFrom(powers, before, exponent);
  } else if (const KnownUnit* const known = units_.find(parent)) {
    factor = recall(*known, exponent, powers);
  } else {
    return enter(*parent, powers);
  }
  ++step.next;
  step.factor = power(factor, exponent) * step.factor;
  work_ += 1 + powers.size() - before;  // tuning
}

/// Combines the powers of a unit on the path whenever their number has doubled, so that memory
/// depends on the number of distinct primitive units, not on the number of parents.
void Reducer::combineIfMany(UnitStep& step, Powers& powers) {
  if (powers.size() < step.combineAt) return;  // tuning
  combinePowers(powers, step.firstPower);
  step.combineAt = 2 * powers.size() - step.firstPower + maxUncombined;  // tuning
}

/// Pops the last unit, whose parents are all multiplied in, from the path and multiplies it into
/// the unit before it, if any.
/// @return  the popped unit's factor.
double Reducer::finish(Powers& powers) {
  const UnitStep done = path_.back();
  combinePowers(powers, done.firstPower);
  saturateFrom(powers, done.firstPower);
  remember(done, powers);
  path_.pop_back();
  if (path_.empty()) return done.factor;

  UnitStep& step = path_.back();
  const int exponent = step.unit->parents[step.next++].exponent;
  step.factor = power(done.factor, exponent) * step.factor;
  raiseFrom(powers, done.firstPower, exponent);
  return done.factor;
}

/// Stores a reduced unit if a lookup is faster than reducing it again.
void Reducer::remember(const UnitStep& done, const Powers& powers) {
  constexpr std::size_t minWork = 16;                                             // tuning
  if (purpose_ != Purpose::Listing && work_ - done.workBefore < minWork) return;  // tuning
  const KnownUnit known = {done.factor, knownPowers_.size(), powers.size() - done.firstPower};
  knownPowers_.append(powers.begin() + done.firstPower, powers.end());
  units_.insert(done.unit, known);
}

/// Appends the powers of a stored unit.
/// @return  its factor.
double Reducer::recall(const KnownUnit& known, int exponent, Powers& powers) const {
  const Power* const first = knownPowers_.begin() + known.firstPower;
  powers.reserve(powers.size() + known.powerCount);
  powers.setEnd(multiply(first, first + known.powerCount, exponent, powers.end()));
  return known.factor;
}

/// The factor of a unit without those of its parent units.
double Reducer::ownFactor(const RecordNode<Unit>& unit) {
  if (purpose_ != Purpose::Conversion) return 1.0;
  work_ += unit.parentFactors.size();  // tuning
  double factor = unit.ownFactor;
  for (const auto& [parent, exponent] : unit.parentFactors)
    factor *= power(valueOf(*parent), exponent);
  return factor;
}

double Reducer::valueOf(const RecordNode<Factor>& root) {
  if (root.parents.empty()) return root.ownValue;
  if (const double* const known = factors_.find(&root)) return *known;

  factorPath_.push_back({&root, root.ownValue, 0});
  while (true) {
    FactorStep& step = factorPath_.back();
    const auto& parents = step.factor->parents;
    if (step.next < parents.size()) {
      const auto& [parent, exponent] = parents[step.next];
      const double* const known =
          parent->parents.empty() ? &parent->ownValue : factors_.find(parent);
      if (!known) {
        factorPath_.push_back({parent, parent->ownValue, 0});
      } else {
        step.value *= power(*known, exponent);
        ++step.next;
      }
      continue;
    }
    const double value = step.value;
    factors_.insert(step.factor, value);
    factorPath_.pop_back();
    if (factorPath_.empty()) return value;
  }
}

}  // namespace Units
