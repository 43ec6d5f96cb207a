#include "engine/Conversion.h"

#include "model/CompatiblePowers.h"
#include "model/RecordAccess.h"

#include <TrelvonUnits/Exceptions.h>

#include <cmath>

namespace Units {

namespace {

/// Converts a value from one unit to another.
struct ConversionRule {
  ReducedUnit from;
  ReducedUnit to;
  bool inverted;

  double apply(double value) const {
    const double primitive = (from.offset + value) * from.factor;
    return (inverted ? std::pow(primitive, -1.0) : primitive) / to.factor - to.offset;
  }

  ConversionSteps steps() const {
    return {{from.offset, from.factor, to.factor, to.offset}, inverted};
  }
};

/// Calls `use` with the conversion rule of two units if they are convertible.
/// @return  whether they are.
template <class Use>
bool withRule(const std::string& fromUnitTypeId, const std::string& toUnitTypeId,
              Reducer::Purpose purpose, const Registries& registries, Use use) {
  const auto& from = lookUpNode(registries.units.objects, fromUnitTypeId);
  const auto& to = lookUpNode(registries.units.objects, toUnitTypeId);
  if (!areBothAbsoluteOrRelative(from, to)) return false;
  Reducer reducer(purpose);
  ConversionRule rule{reducer.reduce(from), reducer.reduce(to), false};
  if (!arePowersCompatible(rule.from.powers, rule.to.powers, rule.inverted)) return false;
  use(rule);
  return true;
}

/// Calls `use` with the conversion rule of two units.
template <class Use>
void withRuleOrThrow(const std::string& fromUnitTypeId, const std::string& toUnitTypeId,
                     const Registries& registries, Use use) {
  if (!withRule(fromUnitTypeId, toUnitTypeId, Reducer::Purpose::Conversion, registries, use))
    throw IncompatibleUnitsException("Cannot convert between units " + fromUnitTypeId + " and " +
                                     toUnitTypeId + ".");
}

}  // namespace

bool areBothAbsoluteOrRelative(const RecordNode<Unit>& a, const RecordNode<Unit>& b) {
  return a.isAbsolute == b.isAbsolute;
}

double convertValue(double value, const std::string& fromUnitTypeId,
                    const std::string& toUnitTypeId, const Registries& registries) {
  withRuleOrThrow(fromUnitTypeId, toUnitTypeId, registries,
                  [&](const ConversionRule& rule) { value = rule.apply(value); });
  return value;
}

ConversionSteps conversionSteps(const std::string& fromUnitTypeId, const std::string& toUnitTypeId,
                                const Registries& registries) {
  ConversionSteps steps = {};
  withRuleOrThrow(fromUnitTypeId, toUnitTypeId, registries,
                  [&](const ConversionRule& rule) { steps = rule.steps(); });
  return steps;
}

bool canConvertUnits(const std::string& fromUnitTypeId, const std::string& toUnitTypeId,
                     const Registries& registries) {
  return withRule(fromUnitTypeId, toUnitTypeId, Reducer::Purpose::Comparison, registries,
                  [](const ConversionRule&) {});
}

}  // namespace Units
