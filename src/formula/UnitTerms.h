#pragma once

#include "formula/UnitPowers.h"

#include <TrelvonUnits/Unit.h>

/// A unit in primitive terms, for formulas: v in the unit is (v + offset) * factor of `powers`.
struct UnitTerms {
  double factor;
  double offset;
  UnitPowers powers;

  double fromUnit(double value) const { return (offset + value) * factor; }
};

/// Returns the terms of units during one evaluation. Reduces each unit once.
class UnitTermsSource {
 public:
  virtual ~UnitTermsSource() = default;

  /// @param unit  the unit of a stored symbol, or a stored unit.
  /// @return  valid as long as the source.
  virtual const UnitTerms& termsOf(const Units::Unit& unit) = 0;
};
