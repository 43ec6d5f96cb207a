#include "schema/QuantitySchema.h"

#include "model/RecordAccess.h"
#include "schema/ConstantReaders.h"
#include "schema/FindDependency.h"
#include "schema/SchemaWriter.h"
#include "schema/UnitSchema.h"

#include <utility>
#include <vector>

namespace Units {

std::optional<QuantitySchemaData> readQuantitySchema(const SchemaHeader& header) {
  using TypeIds = std::vector<std::string>;
  if (!isOfKind(header, "quantity")) return std::nullopt;
  auto name = readConstant<std::string>(header, "name", std::nullopt, readNonEmptyString);
  auto units = readConstant<TypeIds>(header, "units", TypeIds(), readTypedValueArray);
  return QuantitySchemaData{std::move(name), std::move(units)};
}

std::set<std::string> quantitySchemaDependencies(const QuantitySchemaData& data) {
  return {data.units.begin(), data.units.end()};
}

void buildQuantity(const std::string& typeId, const QuantitySchemaData& data,
                   const KindRegistry<UnitSchemaData, Unit>& units, RecordStore<Quantity>& built) {
  std::vector<Unit> found;
  found.reserve(data.units.size());
  for (const std::string& unit : data.units) found.push_back(findDependency(units, unit, typeId));
  built.add(Quantity(typeId, data.name, found));
}

void collectQuantityReferences(const Quantity& quantity, References& out,
                               const RecordStore<Unit>& units) {
  for (const Unit& unit : RecordAccess::units(quantity)) {
    out.typeIds.insert(RecordAccess::typeId(unit));
    collectUnitReferences(storedNode(units, RecordAccess::typeId(unit)), out);
  }
}

std::string writeQuantitySchema(const Quantity& quantity) {
  JSON document = makeSchemaDocument(RecordAccess::typeId(quantity), "quantity");
  std::vector<JSON> typedValues;
  for (const Unit& unit : RecordAccess::units(quantity))
    typedValues.push_back(makeTypedValue(document, RecordAccess::typeId(unit)));
  JSON units = makeIdProperty(document, "units");
  units.setMember(document, "typedValue", JSON::makeArray(document, std::move(typedValues)));
  std::vector<JSON> constants;
  constants.push_back(makeValueProperty(document, "name", RecordAccess::name(quantity)));
  constants.push_back(std::move(units));
  setConstants(document, std::move(constants));
  return document.toString();
}

}  // namespace Units
