#include "registry/Commit.h"

#include <utility>

namespace Units {

void commit(RecordBatch&& batch, Registries& registries) {
  SymbolTexts symbolTexts(batch.symbols);  // may throw: nothing has changed yet

  // From here on nothing allocates or throws: nodes change their owner and stay where they are.
  registries.dimensions.objects.merge(batch.dimensions);
  registries.factors.objects.merge(batch.factors);
  registries.units.objects.merge(batch.units);
  registries.symbols.objects.merge(batch.symbols);
  registries.quantities.objects.merge(batch.quantities);
  registries.registeredTypeIds.merge(batch.typeIds);
  registries.symbolTexts.merge(std::move(symbolTexts));
}

}  // namespace Units
