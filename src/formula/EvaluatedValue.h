#pragma once

#include "formula/UnitPowers.h"

#include <utility>
#include <vector>

/// A value of a formula and its units.
///
/// Most units are those of a literal, unchanged. So they are borrowed from the UnitTerms of its
/// unit, which outlive the evaluation, and copied only when they change.
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

  /// Null once the units have changed.
  const UnitPowers* borrowedUnits() const { return borrowed_; }

  /// At least the number of primitive units, without merging them.
  std::size_t mostUnits() const { return (borrowed_ ? *borrowed_ : owned_).unmergedSize(); }

  bool isUnitless() { return units().empty(); }

  /// Whether the values may be added. Two units borrowed from the same UnitTerms are equal.
  bool hasSameUnitsAs(EvaluatedValue& other) {
    return (borrowed_ && borrowed_ == other.borrowed_) || haveSamePowers(units(), other.units());
  }

  /// Set the units to those of the product with, or the quotient by, another value, whose units may
  /// be moved from.
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

/// A stack of operands that wait for their operator.
using EvaluatedValues = std::vector<EvaluatedValue>;
