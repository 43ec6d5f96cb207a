#pragma once

#include "formula/UnitPowers.h"

#include <utility>
#include <vector>

/// A value of a formula and its units.
///
/// Most units pass through unchanged from the unit that a literal names, so they are borrowed from
/// its terms, which outlive the evaluation, and copied only by who changes or keeps them.
class EvaluatedValue {
 public:
  explicit EvaluatedValue(double number) : value(number) {}
  EvaluatedValue(double number, const UnitPowers* borrowed) : value(number), borrowed_(borrowed) {}

  const UnitPowers& units() {
    if (borrowed_) return *borrowed_;
    owned_.settle();
    return owned_;
  }

  UnitPowers& changeableUnits() {
    if (borrowed_) {
      owned_ = *borrowed_;
      borrowed_ = nullptr;
    }
    return owned_;
  }

  bool isUnitless() { return units().empty(); }

  /// Whether values may be added. Units that are lent by one unit of the engine need no look.
  bool hasSameUnitsAs(EvaluatedValue& other) {
    return (borrowed_ && borrowed_ == other.borrowed_) || haveSamePowers(units(), other.units());
  }

  /// Makes this value's units those of its product with another, or of the quotient by it, whose
  /// units are used up.
  void multiplyUnits(EvaluatedValue& other) {
    if (other.borrowed_)
      changeableUnits().multiplyBy(*other.borrowed_);
    else if (!other.owned_.empty())
      changeableUnits().multiplyBy(std::move(other.owned_));
  }
  void divideUnits(EvaluatedValue& other) {
    if (other.borrowed_)
      changeableUnits().divideBy(*other.borrowed_);
    else if (!other.owned_.empty())
      changeableUnits().divideBy(std::move(other.owned_));
  }

  double value;

 private:
  const UnitPowers* borrowed_ = nullptr;
  UnitPowers owned_;  // empty while units are borrowed
};

/// The operands that wait for their operator, the last one on top.
using EvaluatedValues = std::vector<EvaluatedValue>;
