#pragma once

#include "json/JSON.h"
#include "model/RecordStore.h"
#include "schema/References.h"
#include "schema/SchemaData.h"
#include "schema/SchemaHeader.h"
#include "schema/SchemaIds.h"

#include <TrelvonUnits/Factor.h>

#include <optional>
#include <string>
#include <vector>

/// Schemas of factors: a number and, for a derived factor, powers of parent factors.
///
///   factor          "factor": number, default 1.0
///   factor.derived  "factor" as above; "parentFactors": {type id: exponent, ...}, default empty
namespace Units {

/// Empty if the schema is not a factor's.
/// @throws ValidationException  a constant has the wrong type, or an exponent is 0.
std::optional<FactorSchemaData> readFactorSchema(const SchemaHeader& header);

/// The value of a factor. Does not check the parents, which may be added later.
FactorComponent makeFactorComponent(const FactorSchemaData& data, SchemaIds& ids);

void addPending(const FactorSchemaData& data, SchemaIds& ids);

/// Adds the given parent factors of a stored record and all of their ancestors.
void collectParentFactors(const std::vector<ParentPower<Factor>>& parents, References& out);

/// Writes a factor without parents as a simple factor, even if it was read as a derived one.
/// @throws ValidationException  the number is infinite or NaN.
std::string writeFactorSchema(const Factor& factor);

/// Appends the constants that schemas of factors and of derived units share: "factor" and, if there
/// are any, "parentFactors".
void addFactorConstants(JSON& document, const std::string& typeId, const FactorComponent& component,
                        std::vector<JSON>& constants);

}  // namespace Units
