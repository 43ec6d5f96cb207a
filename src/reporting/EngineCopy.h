#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <memory>

namespace Schemas {

/// A new engine with the dimensions, factors and units that another one stores. What a
/// host-implemented engine lists without its parents is left out.
std::unique_ptr<Units::UnitsEngine> copyEngine(const Units::UnitsEngine& engine);

/// Adds the symbols, or quantities, of another engine, too.
void copySymbols(const Units::UnitsEngine& engine, Units::UnitsEngine& copy);
void copyQuantities(const Units::UnitsEngine& engine, Units::UnitsEngine& copy);

}  // namespace Schemas
