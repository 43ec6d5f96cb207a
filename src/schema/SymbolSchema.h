#pragma once

#include "model/RecordStore.h"
#include "registry/KindRegistry.h"
#include "registry/SchemaData.h"
#include "schema/References.h"
#include "schema/SchemaHeader.h"

#include <TrelvonUnits/Symbol.h>

#include <optional>
#include <set>
#include <string>

/// Schemas of symbols: a unit, and how numbers in it are shown.
///
///   symbol                 "unit": typed value; its type id names one of the composite forms
///   symbol.prefixOrSuffix  "unit"; "text": string; "placement": "Prefix" or any other text, which
///                          is read as Suffix; "space": true or false
namespace Units {

/// Empty when the schema is not one of a symbol.
/// @throws ValidationException  a constant is missing or has the wrong form, or a symbol without
///                              prefix or suffix is not named as a composite (tested last).
std::optional<SymbolSchemaData> readSymbolSchema(const SchemaHeader& header);

std::set<std::string> symbolSchemaDependencies(const SymbolSchemaData& data);

/// Makes the record, in `built`.
/// @throws ValidationException  the unit is neither stored nor built.
void buildSymbol(const std::string& typeId, const SymbolSchemaData& data,
                 const KindRegistry<UnitSchemaData, Unit>& units, RecordStore<Symbol>& built);

/// Adds the symbol's unit and all that it depends on.
void collectSymbolReferences(const Symbol& symbol, References& out, const RecordStore<Unit>& units);

std::string writeSymbolSchema(const Symbol& symbol);

}  // namespace Units
