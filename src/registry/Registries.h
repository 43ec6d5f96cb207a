#pragma once

#include "model/SymbolTexts.h"
#include "registry/KindRegistry.h"
#include "registry/WaitingSchemas.h"

#include <string_view>

namespace Units {

/// Everything an engine stores. All iteration over the kinds is in this order.
///
/// Only `commit` changes `objects` and `symbolTexts`.
struct Registries {
  KindRegistry<Dimension> dimensions;
  KindRegistry<Factor> factors;
  KindRegistry<Unit> units;
  KindRegistry<Symbol> symbols;
  KindRegistry<Quantity> quantities;
  WaitingSchemas waiting;             // pending, too
  IndexedMap<SharedText> awaitedIds;  // that pending schemas refer to and that came first
  SymbolTexts symbolTexts;            // index of symbols.objects
};

/// The type id of a stored record or a pending schema; null if there is none.
const SharedText* findRegistered(const HashedText& typeId, const Registries& registries);

/// Whether a type id belongs to a stored record or a pending schema.
inline bool isRegistered(std::string_view typeId, const Registries& registries) {
  return findRegistered(typeId, registries) != nullptr;
}

}  // namespace Units
