#pragma once

#include "registry/Registries.h"

namespace Units {

/// Builds a record in `built` from every pending schema, kind by kind. Then checks the references
/// of all built records to each other and to stored records.
///
/// @throws ValidationException  the first error. Missing units or dimensions of symbols, quantities
///                              and primitive units come first, by kind and type id; then errors
///                              of factors, then of units, by type id.
void buildDefinitions(PendingSchemas& pending, Registries& registries);

}  // namespace Units
