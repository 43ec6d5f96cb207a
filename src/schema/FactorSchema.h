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

/// Schemas of factors: a number, and for a derived factor powers of others.
///
///   factor          "factor": number, 1.0 when absent
///   factor.derived  "factor" as above; "parentFactors": {type id: exponent, ...}, none when absent
namespace Units {

/// Empty when the schema is not one of a factor.
/// @throws ValidationException  a constant has the wrong form, or an exponent is 0.
std::optional<FactorSchemaData> readFactorSchema(const SchemaHeader& header);

std::set<std::string> factorSchemaDependencies(const FactorSchemaData& data);

/// Makes the record, in `built`.
/// Checks nothing: the parents may be built later.
void buildFactor(const std::string& typeId, const FactorSchemaData& data,
                 RecordStore<Factor>& built);

/// Adds all factors that a stored record depends on by its parent factors, directly or through
/// others.
void collectParentFactors(const std::vector<ParentPower<Factor>>& parents, References& out);

/// A factor without parents is written as a simple one, whatever it was read as.
/// @throws ValidationException  the number is infinite or none.
std::string writeFactorSchema(const Factor& factor);

/// Appends what the schemas of factors and of derived units both say of a component: "factor", and
/// "parentFactors" when there are any.
void addFactorConstants(JSON& document, const std::string& typeId, const FactorComponent& component,
                        std::vector<JSON>& constants);

}  // namespace Units
