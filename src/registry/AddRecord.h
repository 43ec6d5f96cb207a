#pragma once

#include "registry/Registries.h"

namespace Units {

/// Each stores a record after its kind's check and then the check of its type id have passed; a
/// failure leaves the registries unchanged.
void addDimension(const Dimension& dimension, Registries& registries);
void addFactor(const Factor& factor, Registries& registries);
void addUnit(const Unit& unit, Registries& registries);
void addSymbol(const Symbol& symbol, Registries& registries);
void addQuantity(const Quantity& quantity, Registries& registries);

}  // namespace Units
