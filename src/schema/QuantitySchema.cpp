#include "schema/QuantitySchema.h"

#include "model/RecordAccess.h"
#include "schema/ConstantReaders.h"
#include "schema/FindDependency.h"
#include "schema/SchemaWriter.h"
#include "schema/UnitSchema.h"

#include <memory>
#include <utility>
#include <vector>

namespace Units {

std::optional<QuantitySchemaData> readQuantitySchema(const SchemaHeader& header) {
  using TypeIds = std::vector<std::string_view>;
  if (!isOfKind(header, "quantity")) return std::nullopt;
  const auto name =
      readConstant<std::string_view>(header, "name", std::nullopt, readNonEmptyString);
  return QuantitySchemaData{name,
                            readConstant<TypeIds>(header, "units", TypeIds(), readTypedValueArray)};
}

void addPending(const QuantitySchemaData& data, SchemaIds& ids) {
  auto schema = std::make_unique<QuantitySchema>();
  schema->name = data.name;
  schema->units.reserve(data.units.size());
  for (const std::string_view unit : data.units) schema->units.push_back(ids.refer(unit));
  ids.addPending(std::move(schema));
}

Quantity build(const SharedText& typeId, QuantitySchema& schema, const Registries& registries) {
  std::vector<Unit> found;
  found.reserve(schema.units.size());
  for (const SharedText& unit : schema.units)
    found.push_back(findDependency(registries.units, unit, typeId));
  return RecordAccess::make<Quantity>(typeId, std::move(schema.name), std::move(found));
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
