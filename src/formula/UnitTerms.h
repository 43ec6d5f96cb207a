#pragma once

#include "formula/UnitPowers.h"

#include <TrelvonUnits/Unit.h>

/// A unit in the terms that formulas compute in: v in the unit is (v + offset) * factor of
/// `powers`.
struct UnitTerms {
  double factor;
  double offset;
  UnitPowers powers;

  double fromUnit(double value) const { return (offset + value) * factor; }
};

/// Gives units in these terms, each of them once: for the length of one evaluation.
class UnitTermsSource {
 public:
  virtual ~UnitTermsSource() = default;

  /// @param unit  of a symbol of the engine, or one that the engine holds.
  /// @return  stays where it is as long as the source.
  virtual const UnitTerms& termsOf(const Units::Unit& unit) = 0;
};
