/// The reduction of units as one would write it first: recursive, nothing remembered.
#pragma once

#include <TrelvonUnits/TrelvonUnits.h>

#include <cmath>
#include <map>
#include <string>

namespace Units {

struct Reference {
  const std::map<std::string, Unit>& units;
  const std::map<std::string, Factor>& factors;

  double factorOf(const FactorComponent& component) const {
    double result = component.getFactor();
    for (const auto& [id, exponent] : component.getParentFactorPowers())
      result = result * std::pow(factorOf(factors.at(id).getFactorComponent()),
                                 static_cast<double>(exponent));
    return result;
  }

  void reduce(const Unit& unit, double& factor, PrimitivePowers& powers) const {
    powers.clear();
    factor = 1.0;
    if (const auto derived = unit.getDerivedUnitComponent()) {
      factor = factorOf(derived->getFactorComponent());
      for (const auto& [id, exponent] : derived->getParentUnitPowers()) {
        double parentFactor;
        PrimitivePowers parentPowers;
        reduce(units.at(id), parentFactor, parentPowers);
        factor = std::pow(parentFactor, static_cast<double>(exponent)) * factor;
        for (const auto& [primitive, power] : parentPowers)
          if (power != 0) powers[primitive] += power * exponent;
      }
    } else {
      powers[unit.getTypeId()] = 1;
    }
  }
};

}  // namespace Units
