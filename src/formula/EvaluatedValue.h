#pragma once

#include "formula/UnitPowers.h"

#include <utility>
#include <vector>

/// A value of a formula and its units.
///
/// Most units pass through unchanged from the literal that brought them, so they are borrowed from
/// its node, which outlives the evaluation, and copied only by who changes or keeps them.
class EvaluatedValue {
 public:
  explicit EvaluatedValue(double number) : value(number) {}
  EvaluatedValue(double number, const UnitPowers& lender) : value(number), lent_(&lender) {}

  const UnitPowers& units() const { return lent_ ? *lent_ : owned_; }

  UnitPowers& changeableUnits() {
    if (lent_) {
      owned_ = *lent_;
      lent_ = nullptr;
    }
    return owned_;
  }

  double value;

 private:
  const UnitPowers* lent_ = nullptr;
  UnitPowers owned_;  // empty while units are borrowed
};

/// The operands that wait for their operator, the last one on top.
using EvaluatedValues = std::vector<EvaluatedValue>;
