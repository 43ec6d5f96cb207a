#pragma once

#include "schema/SchemaHeader.h"

#include <TrelvonUnits/Dimension.h>

#include <optional>
#include <string>

/// Schemas of dimensions: only a type id; constants are ignored. A dimension needs no build step
/// and has no dependencies.
namespace Units {

/// Empty if the schema is not a dimension's.
std::optional<Dimension> readDimensionSchema(const SchemaHeader& header);

std::string writeDimensionSchema(const Dimension& dimension);

}  // namespace Units
