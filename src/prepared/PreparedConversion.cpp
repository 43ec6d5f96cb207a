#include "prepared/ConversionLoops.h"
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

}  // namespace

PreparedConversion::PreparedConversion(const UnitsEngine& engine, const std::string& fromUnitTypeId,
                                       const std::string& toUnitTypeId) {
  engine.convert(0.0, fromUnitTypeId, toUnitTypeId);  // throws as every conversion would
  const Scale from = scaleOf(engine, fromUnitTypeId);
  const Scale to = scaleOf(engine, toUnitTypeId);
  FactorFinder finder(engine);
  fromOffset_ = from.offset;
  fromFactor_ = finder.factorOf(from.relativeUnit);
  toFactor_ = finder.factorOf(to.relativeUnit);
  toOffset_ = to.offset;
  inverted_ = finder.areReciprocal(from.relativeUnit, to.relativeUnit);
}

double PreparedConversion::reciprocalOf(double value) { return std::pow(value, -1.0); }

void PreparedConversion::convert(const double* values, double* converted, std::size_t count) const {
  if (inverted_) {
    for (std::size_t i = 0; i < count; ++i) converted[i] = (*this)(values[i]);
  } else {
    convertAll(values, converted, count, fromOffset_, fromFactor_, toFactor_, toOffset_);
  }
}

}  // namespace Units
