#pragma once

#include "formula/SpellingTables.h"
#include "formula/UnitPowers.h"

#include <TrelvonUnits/PrimitivePowers.h>
#include <TrelvonUnits/Unit.h>

namespace Units {

/// The parts of an engine that formulas use: conversion arithmetic and spelling tables.
class UnitMath {
 public:
  virtual ~UnitMath() = default;

  /// Reduces a unit to primitive terms: v in the unit is (v + offset) * factor of `powers`.
  virtual void reduceUnit(const Unit& unit, double& factor, double& offset,
                          PrimitivePowers& powers) const = 0;

  /// Whether two dimensions are the same or exactly reciprocal, in which case `inverted` is set.
  virtual bool arePowersCompatible(PrimitivePowers a, PrimitivePowers b, bool& inverted) const = 0;

  /// Converts a value in the unit to primitive units and sets `powers` to the unit's exponents.
  virtual void reduceValue(const Unit& unit, double& value, UnitPowerMap& powers) const = 0;

  virtual const FunctionMap& getFunctionMap() const = 0;
  virtual const BinaryOperatorMap& getBinaryOperatorMap() const = 0;
  virtual const UnaryOperatorMap& getUnaryOperatorMap() const = 0;
};

}  // namespace Units
