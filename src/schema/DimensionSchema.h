#pragma once

#include "schema/SchemaData.h"
#include "schema/SchemaHeader.h"
#include "schema/SchemaIds.h"

#include <TrelvonUnits/Dimension.h>

#include <optional>
#include <string>

/// Schemas of dimensions: only a type id; constants are ignored. A dimension has no dependencies.
namespace Units {

/// Empty if the schema is not a dimension's.
std::optional<DimensionSchemaData> readDimensionSchema(const SchemaHeader& header);

/// Stores a schema as pending. If it throws, nothing changes. The same for the other kinds.
void addPending(const DimensionSchemaData& data, SchemaIds& ids);

std::string writeDimensionSchema(const Dimension& dimension);

}  // namespace Units
