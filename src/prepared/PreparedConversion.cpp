#include "prepared/ConversionLoops.h"
#include "prepared/ConversionSource.h"
#include "prepared/FactorFinder.h"

#include <TrelvonUnits/PreparedConversion.h>

#include <cmath>

namespace Units {

namespace {

/// What a conversion uses of a unit: the offset, and the relative unit that has the factor.
struct Scale {
  double offset;
  std::string relativeUnit;
};

Scale scaleOf(const UnitsEngine& engine, const std::string& unitTypeId) {
  const auto absolute = engine.getUnit(unitTypeId).getAbsoluteUnitComponent();
  return absolute ? Scale{absolute->getOffset(), absolute->getParentUnit()}
                  : Scale{0.0, unitTypeId};
}

/// The steps of any engine's conversion.
ConversionSteps findSteps(const UnitsEngine& engine, const std::string& fromUnitTypeId,
                          const std::string& toUnitTypeId) {
  engine.convert(0.0, fromUnitTypeId, toUnitTypeId);  // throws as every conversion would
  const Scale from = scaleOf(engine, fromUnitTypeId);
  const Scale to = scaleOf(engine, toUnitTypeId);
  FactorFinder finder(engine);
  const double fromFactor = finder.factorOf(from.relativeUnit);
  const double toFactor = finder.factorOf(to.relativeUnit);
  return {{from.offset, fromFactor, toFactor, to.offset},
          finder.areReciprocal(from.relativeUnit, to.relativeUnit)};
}

}  // namespace

PreparedConversion::PreparedConversion(const UnitsEngine& engine, const std::string& fromUnitTypeId,
                                       const std::string& toUnitTypeId) {
  const auto* const source = dynamic_cast<const ConversionSource*>(&engine);
  const ConversionSteps steps = source ? source->stepsOf(fromUnitTypeId, toUnitTypeId)
                                       : findSteps(engine, fromUnitTypeId, toUnitTypeId);
  fromOffset_ = steps.linear.fromOffset;
  fromFactor_ = steps.linear.fromFactor;
  toFactor_ = steps.linear.toFactor;
  toOffset_ = steps.linear.toOffset;
  inverted_ = steps.inverted;
}

double PreparedConversion::reciprocalOf(double value) { return std::pow(value, -1.0); }

void PreparedConversion::convert(const double* values, double* converted, std::size_t count) const {
  const LinearSteps steps = {fromOffset_, fromFactor_, toFactor_, toOffset_};
  if (inverted_)
    convertAllInverted(values, converted, count, steps);
  else
    convertAll(values, converted, count, steps);
}

}  // namespace Units
