#include "engine/Conversion.h"

#include "model/RecordAccess.h"

#include <TrelvonUnits/Exceptions.h>

#include <cmath>
#include <optional>

namespace Units {

namespace {

/// What turns a value in one unit into a value in another.
struct ConversionRule {
  ReducedUnit from;
  ReducedUnit to;
  bool inverted;

  double apply(double value) const {
    const double primitive = (from.offset + value) * from.factor;
    return (inverted ? std::pow(primitive, -1.0) : primitive) / to.factor - to.offset;
  }
};

/// The rule of two units that convert into each other; nothing for others.
std::optional<ConversionRule> findRule(const std::string& fromUnitTypeId,
                                       const std::string& toUnitTypeId, Reducer& reducer,
                                       const Registries& registries) {
  const auto& from = lookUpNode(registries.units.objects, fromUnitTypeId);
  const auto& to = lookUpNode(registries.units.objects, toUnitTypeId);
  if (!areOfOneSort(*from.record, *to.record)) return std::nullopt;
  ConversionRule rule{reducer.reduce(from), reducer.reduce(to), false};
  if (!arePowersCompatible(rule.from.powers, rule.to.powers, rule.inverted)) return std::nullopt;
  return rule;
}

}  // namespace

bool areOfOneSort(const Unit& a, const Unit& b) {
  return !RecordAccess::absolute(a) == !RecordAccess::absolute(b);
}

double convertValue(double value, const std::string& fromUnitTypeId,
                    const std::string& toUnitTypeId, const Registries& registries) {
  Reducer reducer;
  const auto rule = findRule(fromUnitTypeId, toUnitTypeId, reducer, registries);
  if (!rule)
    throw IncompatibleUnitsException("Cannot convert between units " + fromUnitTypeId + " and " +
                                     toUnitTypeId + ".");
  return rule->apply(value);
}

bool canConvertUnits(const std::string& fromUnitTypeId, const std::string& toUnitTypeId,
                     const Registries& registries) {
  Reducer reducer(Reducer::Wanted::PowersAlone);
  return findRule(fromUnitTypeId, toUnitTypeId, reducer, registries).has_value();
}

}  // namespace Units
