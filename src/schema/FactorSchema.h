#pragma once

#include "json/JSON.h"
#include "model/RecordStore.h"
#include "registry/SchemaData.h"
#include "schema/References.h"
#include "schema/SchemaHeader.h"

#include <TrelvonUnits/Factor.h>

#include <optional>
#include <set>
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

std::set<std::string> factorSchemaDependencies(const FactorSchemaData& data);

/// Builds the record in `built`. Does not check the parents, which may be built later.
void buildFactor(const std::string& typeId, const FactorSchemaData& data,
                 RecordStore<Factor>& built);

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
