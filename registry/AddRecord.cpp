#include "registry/AddRecord.h"

#include "model/RecordAccess.h"
#include "registry/Commit.h"
#include "registry/RecordChecks.h"

#include <string>
#include <utility>

namespace Units {

namespace {

template <class Record>
void store(const Record& record, RecordMap<Record> RecordBatch::*kind, Registries& registries) {
  const std::string& typeId = RecordAccess::typeId(record);
  checkTypeId(typeId, registries);
  RecordBatch batch;
  (batch.*kind).emplace(typeId, record);
  batch.typeIds.insert(typeId);
  commit(std::move(batch), registries);
}

}  // namespace

void addDimension(const Dimension& dimension, Registries& registries) {
  store(dimension, &RecordBatch::dimensions, registries);
}

void addFactor(const Factor& factor, Registries& registries) {
  checkFactorParents(factor, registries.factors.objects);
  store(factor, &RecordBatch::factors, registries);
}

void addUnit(const Unit& unit, Registries& registries) {
  checkUnit(unit, registries);
  store(unit, &RecordBatch::units, registries);
}

void addSymbol(const Symbol& symbol, Registries& registries) {
  store(checkSymbol(symbol, registries.units.objects), &RecordBatch::symbols, registries);
}

void addQuantity(const Quantity& quantity, Registries& registries) {
  store(checkQuantity(quantity, registries.units.objects), &RecordBatch::quantities, registries);
}

}  // namespace Units
