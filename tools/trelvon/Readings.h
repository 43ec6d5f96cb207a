#pragma once

#include "tools/trelvon/Context.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tool {

/// A value in a unit: a requested one, or the default unit of a quantity, which is the first that
/// it lists.
struct Reading {
  double value;
  Units::Unit unit;
  std::string quantity;        ///< Its name. Empty if it does not matter.
  bool isStranger = false;     ///< Whether the quantity lists no unit of the formula.
  std::size_t derivation = 0;  ///< How many definitions the unit depends on.
  std::string quantityTypeId = {};
};

/// The value in the default unit of every quantity that measures what the formula does. Quantities
/// that list a unit of the formula come first, then those whose default unit is closest to the
/// primitive units.
std::vector<Reading> readingsOf(const Units::UnitsEngine& engine,
                                const Units::FormulaExplanation& explanation,
                                const VariableResolver& variables);

/// Writes the first value and the names of the other quantities; as JSON, writes all values.
void writeReadings(Context& context, const std::vector<Reading>& readings,
                   const NumberFormat& format);

}  // namespace tool
