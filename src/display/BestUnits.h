#pragma once

#include "display/DisplayContents.h"

#include <optional>
#include <string>

namespace Units {

/// The first symbol of a unit that has a text, in order of type ids.
std::optional<Symbol> firstTextOf(const UnitsEngine& engine, const std::string& unitTypeId);

/// How values of a unit are shown by a symbol.
DisplayScale scaleOf(const UnitsEngine& engine, const Symbol& symbol,
                     const std::string& unitTypeId);

/// Adds the scales from which the best one is chosen to the one that is there.
void addBestUnits(const UnitsEngine& engine, DisplayContents& display);

}  // namespace Units
