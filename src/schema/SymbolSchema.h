#pragma once

#include "model/RecordStore.h"
#include "schema/References.h"
#include "schema/SchemaData.h"
#include "schema/SchemaHeader.h"
#include "schema/SchemaIds.h"

#include <TrelvonUnits/Symbol.h>

#include <optional>
#include <string>

/// Schemas of symbols: a unit and how its values are displayed.
///
///   symbol                 "unit": typed value; the symbol's type id contains the key of a
///                          composite form
///   symbol.prefixOrSuffix  "unit"; "text": string; "placement": "Prefix"; any other string means
///                          Suffix; "space": true or false
namespace Units {

/// Empty if the schema is not a symbol's.
/// @throws ValidationException  a constant is missing or has the wrong type, or the type id of a
///                              composite symbol has no composite form's key (checked last).
std::optional<SymbolSchemaData> readSymbolSchema(const SchemaHeader& header);

void addPending(const SymbolSchemaData& data, SchemaIds& ids);

/// Makes the record of a schema. Moves from the schema.
/// @throws ValidationException  the unit is neither stored nor built.
Symbol build(const SharedText& typeId, SymbolSchema& schema, const Registries& registries);

/// Adds the symbol's unit and all that it depends on.
void collectSymbolReferences(const Symbol& symbol, References& out, const RecordStore<Unit>& units);

std::string writeSymbolSchema(const Symbol& symbol);

}  // namespace Units
