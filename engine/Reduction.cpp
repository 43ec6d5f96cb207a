#include "engine/Reduction.h"

#include "model/RecordAccess.h"

#include <TrelvonUnits/Exceptions.h>

#include <cmath>
#include <utility>

namespace Units {

namespace {

/// pow(base, exponent), which is the base or 1 to the bit where it is not computed here.
double power(double base, int exponent) {
  return exponent == 1 || base == 1.0 ? base : std::pow(base, static_cast<double>(exponent));
}

double ownFactor(const RecordNode<Factor>& factor) {
  return RecordAccess::factor(RecordAccess::factorComponent(*factor.record));
}

}  // namespace

ReducedUnit Reducer::reduce(const RecordNode<Unit>& unit) {
  const auto* const absolute = RecordAccess::absolute(*unit.record);
  const double offset = absolute ? RecordAccess::offset(*absolute) : 0.0;
  const double factor = reduceRelative(absolute ? *unit.parents.front().parent : unit);
  ReducedUnit reduced{factor, offset, Powers(powers_.begin(), powers_.end(), &memory_)};
  powers_.clear();
  return reduced;
}

/// The factor of a relative unit, whose powers are left in `powers_`.
double Reducer::reduceRelative(const RecordNode<Unit>& root) {
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
  constexpr std::size_t many = 8;
  if (RecordAccess::absolute(*unit.record))
    throw IncompatibleUnitsException("Parent unit " + RecordAccess::typeId(*unit.record) +
                                     " is absolute, but all parent units must be relative.");
  double factor = 1.0;
  if (const auto* const derived = RecordAccess::derived(*unit.record)) {
    factor = RecordAccess::factor(RecordAccess::factorComponent(*derived));
    for (const auto& [parent, exponent] : unit.parentFactors)
      factor *= power(valueOf(*parent), exponent);
  }
  const bool hasMany = unit.parents.size() + unit.parentFactors.size() > many;
  path_.push_back({&unit, factor, 0, powers_.size(), hasMany});
  if (RecordAccess::primitive(*unit.record)) powers_.emplace_back(&unit, 1);
}

/// Multiplies the next parent of the last unit on the path in, or puts it on the path.
void Reducer::takeNextParent() {
  UnitStep& step = path_.back();
  const auto& [parent, exponent] = step.unit->parents[step.next];
  if (RecordAccess::primitive(*parent->record)) {  // its factor is 1
    powers_.emplace_back(parent, exponent);
    ++step.next;
    return;
  }
  step.isDeep = true;
  const auto known = units_.find(parent);
  if (known == units_.end()) return enter(*parent);
  ++step.next;
  step.factor = power(known->second.factor, exponent) * step.factor;
  for (const auto& [primitive, parentExponent] : known->second.powers)
    if (parentExponent != 0)
      powers_.emplace_back(primitive, multiplyExponents(parentExponent, exponent));
}

/// Takes the last unit, which has all its parents, off the path, and multiplies it into the one
/// that it is a parent of.
/// @return  its factor.
double Reducer::finish() {
  const UnitStep step = path_.back();
  path_.pop_back();
  sumUp(powers_, step.firstPower);
  if (path_.empty()) return step.factor;

  const auto first = powers_.begin() + static_cast<std::ptrdiff_t>(step.firstPower);
  if (step.isDeep)
    units_.emplace(step.unit, RelativeUnit{step.factor, Powers(first, powers_.end(), &memory_)});
  UnitStep& child = path_.back();
  const int exponent = child.unit->parents[child.next++].exponent;
  child.factor = power(step.factor, exponent) * child.factor;
  auto end = first;
  for (auto next = first; next != powers_.end(); ++next)
    if (next->second != 0) *end++ = {next->first, multiplyExponents(next->second, exponent)};
  powers_.erase(end, powers_.end());
  return step.factor;
}

double Reducer::valueOf(const RecordNode<Factor>& root) {
  if (root.parents.empty()) return ownFactor(root);
  const auto known = factors_.find(&root);
  if (known != factors_.end()) return known->second;

  factorPath_.push_back({&root, ownFactor(root), 0});
  while (true) {
    FactorStep& step = factorPath_.back();
    const auto& parents = step.factor->parents;
    if (step.next < parents.size()) {
      const auto& [parent, exponent] = parents[step.next];
      const auto found = factors_.find(parent);
      if (!parent->parents.empty() && found == factors_.end()) {
        factorPath_.push_back({parent, ownFactor(*parent), 0});
      } else {
        step.value *= power(parent->parents.empty() ? ownFactor(*parent) : found->second, exponent);
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
