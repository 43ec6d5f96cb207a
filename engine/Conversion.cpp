#include "engine/Conversion.h"

#include "model/RecordAccess.h"

#include <TrelvonUnits/Exceptions.h>

#include <cmath>
#include <optional>

namespace Units {

namespace {

struct ConversionRule {
  double fromOffset;
  double fromFactor;
  bool inverted;
  double toFactor;
  double toOffset;

  double apply(double value) const {
    const double primitive = (fromOffset + value) * fromFactor;
    return (inverted ? std::pow(primitive, -1.0) : primitive) / toFactor - toOffset;
  }
};

/// The rule of two units that convert into each other; nothing for others.
std::optional<ConversionRule> findRule(const RecordNode<Unit>& from, const RecordNode<Unit>& to,
                                       Reducer& reducer) {
  // An absolute unit has a zero of its own, so it never meets a relative one.
  if (!RecordAccess::absolute(*from.record) != !RecordAccess::absolute(*to.record))
    return std::nullopt;
  const ReducedUnit reducedFrom = reducer.reduce(from);
  const ReducedUnit reducedTo = reducer.reduce(to);
  bool inverted = false;
  if (!arePowersCompatible(reducedFrom.powers, reducedTo.powers, inverted)) return std::nullopt;
  return ConversionRule{reducedFrom.offset, reducedFrom.factor, inverted, reducedTo.factor,
                        reducedTo.offset};
}

std::optional<ConversionRule> findRule(const std::string& fromUnitTypeId,
                                       const std::string& toUnitTypeId,
                                       const Registries& registries) {
  const auto& from = lookUpNode(registries.units.objects, fromUnitTypeId);
  const auto& to = lookUpNode(registries.units.objects, toUnitTypeId);
  Reducer reducer;
  return findRule(from, to, reducer);
}

}  // namespace

bool areConvertible(const RecordNode<Unit>& from, const RecordNode<Unit>& to, Reducer& reducer) {
  return findRule(from, to, reducer).has_value();
}

double convertValue(double value, const std::string& fromUnitTypeId,
                    const std::string& toUnitTypeId, const Registries& registries) {
  const auto rule = findRule(fromUnitTypeId, toUnitTypeId, registries);
  if (!rule)
    throw IncompatibleUnitsException("Cannot convert between units " + fromUnitTypeId + " and " +
                                     toUnitTypeId + ".");
  return rule->apply(value);
}

bool canConvertUnits(const std::string& fromUnitTypeId, const std::string& toUnitTypeId,
                     const Registries& registries) {
  return findRule(fromUnitTypeId, toUnitTypeId, registries).has_value();
}

}  // namespace Units
