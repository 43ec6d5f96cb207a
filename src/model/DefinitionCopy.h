#pragma once

#include <TrelvonUnits/UnitsEngine.h>

namespace Units {

/// Add stored definitions of an engine to another one, through the public operations of both.
/// Leaves out what a host-implemented engine lists without its parents, or as its own ancestor.

/// Dimensions, factors and units.
void copyUnits(const UnitsEngine& from, UnitsEngine& to);

/// Need the units.
void copySymbols(const UnitsEngine& from, UnitsEngine& to);
void copyQuantities(const UnitsEngine& from, UnitsEngine& to);

}  // namespace Units
