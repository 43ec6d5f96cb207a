#pragma once

#include "schema/SchemaHeader.h"

#include <TrelvonUnits/Dimension.h>

#include <optional>
#include <string>

/// Schemas of dimensions: a type id, and constants that nobody reads. A dimension needs no building
/// and refers to nothing.
namespace Units {

/// Empty when the schema is not one of a dimension.
std::optional<Dimension> readDimensionSchema(const SchemaHeader& header);

std::string writeDimensionSchema(const Dimension& dimension);

}  // namespace Units
