#pragma once

#include "formula/SpellingTables.h"
#include "formula/UnitPowers.h"

#include <TrelvonUnits/PrimitivePowers.h>
#include <TrelvonUnits/Unit.h>

namespace Units {

/// What formulas need of an engine.
class UnitMath {
 public:
  virtual ~UnitMath() = default;

  /// Reduces a unit to primitive terms: v in the unit is (v + offset) * factor of `powers`.
  virtual void reduceUnit(const Unit& unit, double& factor, double& offset,
                          PrimitivePowers& powers) const = 0;

  /// Whether two dimensions are the same or, with `inverted` set, exactly reciprocal.
  virtual bool arePowersCompatible(PrimitivePowers a, PrimitivePowers b, bool& inverted) const = 0;

  /// Turns a value in the unit into primitive terms, and replaces `powers` by the unit's exponents.
  virtual void reduceValue(const Unit& unit, double& value, UnitPowerMap& powers) const = 0;

  virtual const FunctionMap& getFunctionMap() const = 0;
  virtual const BinaryOperatorMap& getBinaryOperatorMap() const = 0;
  virtual const UnaryOperatorMap& getUnaryOperatorMap() const = 0;

  /// As `reduceUnit`, with the type ids left where they are: what formulas compute with.
  virtual void reduceInPlace(const Unit& unit, double& factor, double& offset,
                             UnitPowers& powers) const = 0;
};

/// Turns a value in a unit into primitive terms, and replaces `powers` by the unit's exponents.
inline double reduceToPrimitives(double value, const Unit& unit, const UnitMath& unitMath,
                                 UnitPowers& powers) {
  double factor = 1.0;
  double offset = 0.0;
  unitMath.reduceInPlace(unit, factor, offset, powers);
  return (offset + value) * factor;
}

}  // namespace Units
