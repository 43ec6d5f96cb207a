#pragma once

#include "registry/Registries.h"

namespace Units {

/// Makes a record in `built` of every schema in `batch`, kind by kind, and checks how the records
/// refer to one another and to stored ones.
///
/// @throws ValidationException  the first fault: of a symbol, quantity or primitive unit whose unit
///                              or dimension is missing, by kind and type id; then of a factor,
///                              then of a unit, by type id.
void buildDefinitions(Registries& registries);

}  // namespace Units
