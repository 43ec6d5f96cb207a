#include "engine/Reduction.h"

#include "model/RecordAccess.h"

#include <TrelvonUnits/Exceptions.h>

#include <cmath>
#include <cstdint>
#include <utility>

namespace Units {

namespace {

/// What a unit must take to reduce to be remembered. Less is done again as quickly.
constexpr std::size_t muchWork = 16;

/// pow(base, exponent), which is the base or 1 to the bit where it is not computed here.
double power(double base, int exponent) {
  return exponent == 1 || base == 1.0 ? base : std::pow(base, static_cast<double>(exponent));
}

/// Writes powers, each `exponent` times, to `target`. Those of 0 are gone.
/// @return  the end of what was written.
Power* multiply(const Power* first, const Power* last, int exponent, Power* target) {
  for (; first != last; ++first)
    if (first->exponent != 0)
      *target++ = {first->parent, saturate(std::int64_t{first->exponent} * exponent)};
  return target;
}

/// Adds powers, each `exponent` times, to the end of a list. Those of 0 are gone.
template <class SomePowers>
void append(Powers& powers, const SomePowers& more, int exponent) {
  powers.reserve(powers.size() + more.size());
  powers.setEnd(multiply(more.begin(), more.end(), exponent, powers.end()));
}

}  // namespace

ReducedUnit Reducer::reduce(const RecordNode<Unit>& unit) {
  ReducedUnit reduced{1.0, 0.0, {}};
  const RecordNode<Unit>* relative = &unit;
  if (unit.isAbsolute) {
    reduced.offset = RecordAccess::offset(*RecordAccess::absolute(*unit.record));
    relative = unit.parents[0].parent;
  }
  if (relative->isSimple) {  // no way down: its parents' factors are all 1
    reduced.factor = ownFactor(*relative);
    append(reduced.powers, relative->parents, 1);
    sumUp(reduced.powers, 0);
  } else {
    reduced.factor = reduceRelative(*relative, reduced.powers);
  }
  return reduced;
}

/// @param powers  empty; takes the unit's powers.
/// @return  its factor.
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

/// Puts a unit on the path, whose powers will follow those so far.
void Reducer::enter(const RecordNode<Unit>& unit, const Powers& powers) {
  if (unit.isAbsolute)
    throw IncompatibleUnitsException("Parent unit " + RecordAccess::typeId(*unit.record) +
                                     " is absolute, but all parent units must be relative.");
  path_.push_back({&unit, ownFactor(unit), 0, powers.size(), work_});
}

/// Multiplies the next parent of the last unit on the path in, or puts it on the path.
void Reducer::takeNextParent(Powers& powers) {
  UnitStep& step = path_.back();
  const auto& [parent, exponent] = step.unit->parents[step.next];
  double factor = 1.0;
  const std::size_t before = powers.size();
  if (parent->isSimple) {  // reduced as quickly as remembered
    factor = ownFactor(*parent);
    append(powers, parent->parents, exponent);
  } else if (const auto known = units_.find(parent); known != units_.end()) {
    factor = known->second.factor;
    append(powers, known->second.powers, exponent);
  } else {
    return enter(*parent, powers);
  }
  ++step.next;
  step.factor = power(factor, exponent) * step.factor;
  work_ += 1 + powers.size() - before;
}

/// Takes the last unit, which has all its parents, off the path, and multiplies it into the one
/// before, if there is one.
/// @return  its factor.
double Reducer::finish(Powers& powers) {
  const UnitStep done = path_.back();
  sumUp(powers, done.firstPower);
  path_.pop_back();
  if (path_.empty()) return done.factor;

  Power* const first = powers.begin() + done.firstPower;
  if (work_ - done.workBefore >= muchWork)
    units_.emplace(done.unit, RelativeUnit{done.factor, Powers(first, powers.end())});

  UnitStep& step = path_.back();
  const int exponent = step.unit->parents[step.next++].exponent;
  step.factor = power(done.factor, exponent) * step.factor;
  powers.setEnd(multiply(first, powers.end(), exponent, first));
  return done.factor;
}

/// The factor of a unit beside those of its parents.
double Reducer::ownFactor(const RecordNode<Unit>& unit) {
  if (wanted_ == Wanted::PowersAlone) return 1.0;
  double factor = unit.ownFactor;
  for (const auto& [parent, exponent] : unit.parentFactors)
    factor *= power(valueOf(*parent), exponent);
  return factor;
}

double Reducer::valueOf(const RecordNode<Factor>& root) {
  if (root.parents.empty()) return root.ownValue;
  const auto known = factors_.find(&root);
  if (known != factors_.end()) return known->second;

  factorPath_.push_back({&root, root.ownValue, 0});
  while (true) {
    FactorStep& step = factorPath_.back();
    const auto& parents = step.factor->parents;
    if (step.next < parents.size()) {
      const auto& [parent, exponent] = parents[step.next];
      const auto found = factors_.find(parent);
      if (!parent->parents.empty() && found == factors_.end()) {
        factorPath_.push_back({parent, parent->ownValue, 0});
      } else {
        step.value *= power(parent->parents.empty() ? parent->ownValue : found->second, exponent);
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
