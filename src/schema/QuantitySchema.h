#pragma once

#include "model/RecordStore.h"
#include "schema/References.h"
#include "schema/SchemaData.h"
#include "schema/SchemaHeader.h"
#include "schema/SchemaIds.h"

#include <TrelvonUnits/Quantity.h>

#include <optional>
#include <string>

/// Schemas of quantities: "name", a non-empty string, and "units", an array of typed values,
/// default empty, whose order and duplicates are preserved.
namespace Units {

/// Empty if the schema is not a quantity's.
/// @throws ValidationException  a constant is missing or has the wrong type.
std::optional<QuantitySchemaData> readQuantitySchema(const SchemaHeader& header);

void addPending(const QuantitySchemaData& data, SchemaIds& ids);

/// Makes the record of a schema. Moves from the schema.
/// @throws ValidationException  a unit is neither stored nor built: the first one in the list.
Quantity build(const SharedText& typeId, QuantitySchema& schema, const Registries& registries);

/// Adds the quantity's units and all that they depend on.
void collectQuantityReferences(const Quantity& quantity, References& out,
                               const RecordStore<Unit>& units);

std::string writeQuantitySchema(const Quantity& quantity);

}  // namespace Units
