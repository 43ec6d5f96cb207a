#pragma once

#include "model/SymbolTexts.h"
#include "registry/KindRegistry.h"
#include "registry/PendingSchemas.h"

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
  PendingSchemas pending;   // read, waiting for a build
  SymbolTexts symbolTexts;  // index of symbols.objects
};

/// The type id of a stored record; null if there is none.
const SharedText* findStored(const HashedText& typeId, const Registries& registries);

/// Whether a type id belongs to a stored record or a pending schema.
bool isRegistered(const HashedText& typeId, const Registries& registries);
inline bool isRegistered(std::string_view typeId, const Registries& registries) {
  return isRegistered(HashedText(typeId), registries);
}

}  // namespace Units
