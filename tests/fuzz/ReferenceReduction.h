/// The reduction of units as one would write it first: recursive, nothing remembered.
#pragma once

#include <TrelvonUnits/TrelvonUnits.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <string>

namespace Units {

struct ReferenceReduction {
  const std::map<std::string, Unit>& units;
  const std::map<std::string, Factor>& factors;
  int stepsLeft = 20000;  // of an exponential walk; the rest is worth nothing where they run out

  double factorOf(const FactorComponent& component) {
    double result = component.getFactor();
    if (--stepsLeft < 0) return result;
    for (const auto& [id, exponent] : component.getParentFactorPowers())
      result = result * std::pow(factorOf(factors.at(id).getFactorComponent()),
                                 static_cast<double>(exponent));
    return result;
  }

  struct Reduced {
    double factor = 1.0, offset = 0.0;
    PrimitivePowers powers = {};
  };

  Reduced reduce(const Unit& unit) {
    Reduced result;
    if (--stepsLeft < 0) return result;
    if (const auto absolute = unit.getAbsoluteUnitComponent()) {
      result = reduce(units.at(absolute->getParentUnit()));
      result.offset = absolute->getOffset();
    } else if (const auto derived = unit.getDerivedUnitComponent()) {
      std::map<std::string, long double> sums;  // exact up to 64 bits
      result.factor = factorOf(derived->getFactorComponent());
      for (const auto& [id, exponent] : derived->getParentUnitPowers()) {
        const Reduced parent = reduce(units.at(id));
        result.factor = std::pow(parent.factor, static_cast<double>(exponent)) * result.factor;
        for (const auto& [primitive, power] : parent.powers)
          if (power != 0) sums[primitive] += static_cast<long double>(power) * exponent;
      }
      for (const auto& [primitive, sum] : sums) result.powers[primitive] = limited(sum);
    } else {
      result.powers[unit.getTypeId()] = 1;
    }
    return result;
  }

  static int limited(long double exponent) {
    return static_cast<int>(std::clamp<long double>(exponent, std::numeric_limits<int>::min(),
                                                    std::numeric_limits<int>::max()));
  }
};

}  // namespace Units
