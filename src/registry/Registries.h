#pragma once

#include "model/SymbolTexts.h"
#include "registry/KindRegistry.h"
#include "registry/SchemaData.h"

#include <set>
#include <string>
#include <string_view>

namespace Units {

/// Everything an engine stores. All iteration over the kinds is in this order.
///
/// Only `commit` changes `objects` and `symbolTexts`.
struct Registries {
  KindRegistry<Dimension, Dimension> dimensions;
  KindRegistry<FactorSchemaData, Factor> factors;
  KindRegistry<UnitSchemaData, Unit> units;
  KindRegistry<SymbolSchemaData, Symbol> symbols;
  KindRegistry<QuantitySchemaData, Quantity> quantities;
  std::set<std::string_view> pendingTypeIds;  // views of the keys of `pending`
  SymbolTexts symbolTexts;                    // index of symbols.objects
};

/// Whether a type id belongs to a stored record.
inline bool isStored(std::string_view typeId, const Registries& registries) {
  return registries.dimensions.objects.findNode(typeId) ||
         registries.factors.objects.findNode(typeId) || registries.units.objects.findNode(typeId) ||
         registries.symbols.objects.findNode(typeId) ||
         registries.quantities.objects.findNode(typeId);
}

/// Whether a type id belongs to a stored record or a pending schema.
inline bool isRegistered(std::string_view typeId, const Registries& registries) {
  return isStored(typeId, registries) || registries.pendingTypeIds.count(typeId) != 0;
}

}  // namespace Units
