#pragma once

#include "naming/UnitCodesContents.h"

#include <TrelvonUnits/UnitNames.h>

#include <cstddef>
#include <string>
#include <vector>

namespace Units {

/// A text that names a unit, as it is read from an engine.
struct NamedUnit {
  Unit unit;
  std::size_t order;  // of the unit, by type id
  NameKind kind;
  std::string text;
};

/// All texts that name units, except empty ones, in order of kind, then of unit. The same text may
/// occur twice for one unit. Those of codes begin with their system: "rec20:FOT".
///
/// @param units  those of the engine, in order.
/// @param codes  by the type ids of units, which need not be units of the engine.
std::vector<NamedUnit> readNames(const UnitsEngine& engine, const std::vector<Unit>& units,
                                 const std::map<std::string, CodesBySystem>& codes);

}  // namespace Units
