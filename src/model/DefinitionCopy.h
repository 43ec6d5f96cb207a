#pragma once

#include <TrelvonUnits/UnitsEngine.h>

namespace Units {

/// Adds all stored definitions of an engine to another one, through the public operations of both.
/// What a host-implemented engine lists without its parents, or as its own ancestor, is left out.
void copyDefinitions(const UnitsEngine& from, UnitsEngine& to);

}  // namespace Units
