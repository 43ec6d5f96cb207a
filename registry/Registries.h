#pragma once

#include "model/SymbolTexts.h"
#include "registry/KindRegistry.h"
#include "registry/SchemaData.h"

#include <set>
#include <string>

namespace Units {

/// Everything an engine knows. The order of the kinds is the order of every walk over them.
///
/// `objects`, `registeredTypeIds` and `symbolTexts` are written by `commit` alone.
struct Registries {
  KindRegistry<Dimension, Dimension> dimensions;
  KindRegistry<FactorSchemaData, Factor> factors;
  KindRegistry<UnitSchemaData, Unit> units;
  KindRegistry<SymbolSchemaData, Symbol> symbols;
  KindRegistry<QuantitySchemaData, Quantity> quantities;
  std::set<std::string> registeredTypeIds;
  std::set<std::string> pendingTypeIds;
  SymbolTexts symbolTexts;  // of symbols.objects
};

/// Whether a type id names a stored record or a pending schema.
inline bool isRegistered(const std::string& typeId, const Registries& registries) {
  return registries.registeredTypeIds.count(typeId) != 0 ||
         registries.pendingTypeIds.count(typeId) != 0;
}

}  // namespace Units
