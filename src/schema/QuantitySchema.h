#pragma once

#include "model/RecordStore.h"
#include "registry/KindRegistry.h"
#include "registry/SchemaData.h"
#include "schema/References.h"
#include "schema/SchemaHeader.h"

#include <TrelvonUnits/Quantity.h>

#include <optional>
#include <set>
#include <string>

/// Schemas of quantities: "name", a non-empty string, and "units", an array of typed values,
/// default empty, whose order and duplicates are preserved.
namespace Units {

/// Empty if the schema is not a quantity's.
/// @throws ValidationException  a constant is missing or has the wrong type.
std::optional<QuantitySchemaData> readQuantitySchema(const SchemaHeader& header);

std::set<std::string> quantitySchemaDependencies(const QuantitySchemaData& data);

/// Builds the record in `built`.
/// @throws ValidationException  a unit is neither stored nor built: the first one in the list.
void buildQuantity(const std::string& typeId, const QuantitySchemaData& data,
                   const KindRegistry<UnitSchemaData, Unit>& units, RecordStore<Quantity>& built);

/// Adds the quantity's units and all that they depend on.
void collectQuantityReferences(const Quantity& quantity, References& out,
                               const RecordStore<Unit>& units);

std::string writeQuantitySchema(const Quantity& quantity);

}  // namespace Units
