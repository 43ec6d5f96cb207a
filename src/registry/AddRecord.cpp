#include "registry/AddRecord.h"

#include "model/RecordAccess.h"
#include "registry/Commit.h"
#include "registry/RecordChecks.h"

#include <string_view>

namespace Units {

namespace {

template <class Record>
void store(const Record& record, KindRegistry<Record>& kind, Registries& registries) {
  checkTypeId(std::string_view(RecordAccess::typeId(record)), registries);
  const BuiltDropper dropper{registries};
  kind.built.add(record);
  commit(registries);
}

}  // namespace

void addDimension(const Dimension& dimension, Registries& registries) {
  store(dimension, registries.dimensions, registries);
}

void addFactor(const Factor& factor, Registries& registries) {
  checkFactorParents(factor, registries.factors.objects);
  store(factor, registries.factors, registries);
}

void addUnit(const Unit& unit, Registries& registries) {
  checkUnit(unit, registries);
  store(unit, registries.units, registries);
}

void addSymbol(const Symbol& symbol, Registries& registries) {
  store(checkSymbol(symbol, registries.units.objects), registries.symbols, registries);
}

void addQuantity(const Quantity& quantity, Registries& registries) {
  store(checkQuantity(quantity, registries.units.objects), registries.quantities, registries);
}

}  // namespace Units
