#pragma once

#include "registry/Registries.h"

namespace Units {

/// Each checks a record by the rules of its kind, then checks its type id, then stores it. If it
/// throws, the registries are unchanged.
void addDimension(const Dimension& dimension, Registries& registries);
void addFactor(const Factor& factor, Registries& registries);
void addUnit(const Unit& unit, Registries& registries);
void addSymbol(const Symbol& symbol, Registries& registries);
void addQuantity(const Quantity& quantity, Registries& registries);

}  // namespace Units
