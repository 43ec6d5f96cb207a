#pragma once

#include "registry/Registries.h"

namespace Units {

/// Builds a record in `built` from every schema in `batch`, kind by kind. Then checks the records'
/// references to each other and to stored records.
///
/// @throws ValidationException  the first error. Missing units or dimensions of symbols, quantities
///                              and primitive units come first, by kind and type id; then errors
///                              of factors, then of units, by type id.
void buildDefinitions(Registries& registries);

}  // namespace Units
