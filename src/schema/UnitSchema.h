#pragma once

#include "model/RecordStore.h"
#include "schema/References.h"
#include "schema/SchemaData.h"
#include "schema/SchemaHeader.h"
#include "schema/SchemaIds.h"

#include <TrelvonUnits/Unit.h>

#include <optional>
#include <string>

/// Schemas of units, of four kinds. All have "name" and "unitSystem": "Metric"; any other string
/// means Imperial.
///
///   unit.absolute               "offset": number, default 0.0; "parentUnit": typed value
///   unit.derived                "factor", "parentFactors": as for a derived factor;
///                               "parentUnits": {type id: exponent, ...}, at least one
///   unit.primitive.dimensional  "dimension": typed value
///   unit.primitive              no other constants
namespace Units {

/// Empty if the schema is not a unit's.
/// @throws ValidationException  a constant is missing or has the wrong type, there are no parent
///                              units, or an exponent is 0.
std::optional<UnitSchemaData> readUnitSchema(const SchemaHeader& header);

/// Does not check the parents, which may be added later.
void addPending(const UnitSchemaData& data, SchemaIds& ids);

/// Makes the record of a schema. Moves from the schema.
/// @throws ValidationException  the dimension is neither stored nor built.
Unit build(const SharedText& typeId, DimensionalUnitSchema& schema, const Registries& registries);

/// Adds all units, factors and dimensions that a stored unit depends on, directly or indirectly.
void collectUnitReferences(const RecordNode<Unit>& unit, References& out);

/// @throws ValidationException  the factor or offset is infinite or NaN.
std::string writeUnitSchema(const Unit& unit);

}  // namespace Units
