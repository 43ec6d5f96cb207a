#include "engine/Reduction.h"

#include "model/RecordAccess.h"

#include <TrelvonUnits/Exceptions.h>

#include <cmath>
#include <map>
#include <string>
#include <utility>

namespace Units {

namespace {

using ParentPowers = std::map<std::string, int>;

/// pow(base, exponent), which for an exponent of 1 is the base to the bit.
double power(double base, int exponent) {
  return exponent == 1 ? base : std::pow(base, static_cast<double>(exponent));
}

}  // namespace

/// A factor component on the way down: the parents before `next` are multiplied in.
struct Reducer::FactorStep {
  FactorStep(const Factor* owner, const FactorComponent& component)
      : factor(owner),
        value(component.getFactor()),
        next(RecordAccess::parentFactorPowers(component).begin()),
        end(RecordAccess::parentFactorPowers(component).end()) {}

  void takeParent(double parent) { value *= power(parent, next++->second); }

  const Factor* factor;  // whose component it is; null for a unit's
  double value;
  ParentPowers::const_iterator next;
  ParentPowers::const_iterator end;
};

double Reducer::factorOf(const FactorComponent& component) {
  std::vector<FactorStep> path;
  path.emplace_back(nullptr, component);
  while (true) {
    FactorStep& step = path.back();
    if (step.next != step.end) {
      const Factor& parent = lookUp(factors_, step.next->first);
      const auto found = reducedFactors_.find(&parent);
      if (found != reducedFactors_.end())
        step.takeParent(found->second);
      else
        path.emplace_back(&parent, RecordAccess::factorComponent(parent));
      continue;
    }
    const double value = step.value;
    if (step.factor) reducedFactors_.emplace(step.factor, value);
    path.pop_back();
    if (path.empty()) return value;
    path.back().takeParent(value);
  }
}

/// A relative unit on the way down: the parents before `next` are multiplied in.
struct Reducer::UnitStep {
  void takeParent(const RelativeUnit& parent) {
    const int exponent = next++->second;
    reduced.factor = power(parent.factor, exponent) * reduced.factor;
    multiplyBy(reduced.powers, parent.powers, exponent);
  }

  const Unit& unit;
  RelativeUnit reduced;
  ParentPowers::const_iterator next;
  ParentPowers::const_iterator end;
};

const Reducer::RelativeUnit* Reducer::known(const Unit& unit) const {
  const auto found = reducedUnits_.find(&unit);
  return found == reducedUnits_.end() ? nullptr : &found->second;
}

const Reducer::RelativeUnit& Reducer::reduceRelative(const Unit& root) {
  static const ParentPowers noParents;
  std::vector<UnitStep> path;
  const auto enter = [&](const Unit& unit) {
    if (RecordAccess::absolute(unit))
      throw IncompatibleUnitsException("Parent unit " + RecordAccess::typeId(unit) +
                                       " is absolute, but all parent units must be relative.");
    if (const auto* const derived = RecordAccess::derived(unit)) {
      const ParentPowers& parents = RecordAccess::parentUnitPowers(*derived);
      const double factor = factorOf(RecordAccess::factorComponent(*derived));
      path.push_back({unit, {factor, {}}, parents.begin(), parents.end()});
    } else {
      path.push_back(
          {unit, {1.0, {{RecordAccess::typeId(unit), 1}}}, noParents.begin(), noParents.end()});
    }
  };

  if (const RelativeUnit* const reduced = known(root)) return *reduced;
  enter(root);
  while (true) {
    UnitStep& step = path.back();
    if (step.next != step.end) {
      const Unit& parent = lookUp(units_, step.next->first);
      if (const RelativeUnit* const reduced = known(parent))
        step.takeParent(*reduced);
      else
        enter(parent);
      continue;
    }
    const RelativeUnit& reduced =
        reducedUnits_.emplace(&step.unit, std::move(step.reduced)).first->second;
    path.pop_back();
    if (path.empty()) return reduced;
    path.back().takeParent(reduced);
  }
}

ReducedUnit Reducer::reduce(const Unit& unit) {
  const auto* const absolute = RecordAccess::absolute(unit);
  const double offset = absolute ? absolute->getOffset() : 0.0;
  const RelativeUnit& relative =
      reduceRelative(absolute ? lookUp(units_, RecordAccess::parentUnit(*absolute)) : unit);
  return {relative.factor, offset, relative.powers};
}

}  // namespace Units
