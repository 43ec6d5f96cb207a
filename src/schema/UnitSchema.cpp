#include "schema/UnitSchema.h"

#include "model/RecordAccess.h"
#include "schema/ConstantReaders.h"
#include "schema/FactorSchema.h"
#include "schema/FindDependency.h"
#include "schema/SchemaWriter.h"

#include <memory>
#include <utility>
#include <variant>
#include <vector>

namespace Units {

namespace {

constexpr const char* absoluteWord = "unit.absolute";
constexpr const char* derivedWord = "unit.derived";
constexpr const char* dimensionalWord = "unit.primitive.dimensional";
constexpr const char* primitiveWord = "unit.primitive";

using Component = decltype(UnitSchemaData::component);

Component readAbsolute(const SchemaHeader& header) {
  const double offset = readConstant<double>(header, "offset", 0.0, readNumber);
  return AbsoluteUnitSchemaData{
      offset, readConstant<std::string_view>(header, "parentUnit", std::nullopt, readTypedValue)};
}

Component readDerived(const SchemaHeader& header) {
  const auto readParents = [&](std::string_view id, std::optional<ParentViews> fallback) {
    return readConstant<ParentViews>(header, id, std::move(fallback), readIntegerMap);
  };
  const double factor = readConstant<double>(header, "factor", 1.0, readNumber);
  auto parentFactors = readParents("parentFactors", ParentViews());
  auto parentUnits = readParents("parentUnits", std::nullopt);
  noteConstant(header, "parentUnits");
  if (parentUnits.empty())
    throw ValidationException("Derived unit " + std::string(header.typeId) +
                              " must specify at least one parent unit.");
  checkParents(header, "parentUnits", parentUnits);
  checkParents(header, "parentFactors", parentFactors);
  return DerivedUnitSchemaData{{factor, std::move(parentFactors)}, std::move(parentUnits)};
}

Component readDimensional(const SchemaHeader& header) {
  return DimensionalPrimitiveUnitSchemaData{
      readConstant<std::string_view>(header, "dimension", std::nullopt, readTypedValue)};
}

Component readPrimitive(const SchemaHeader&) { return PrimitiveUnitSchemaData(); }

struct UnitKind {
  const char* word;
  Component (*read)(const SchemaHeader&);
};
constexpr UnitKind kinds[] = {{absoluteWord, readAbsolute},
                              {derivedWord, readDerived},
                              {dimensionalWord, readDimensional},
                              {primitiveWord, readPrimitive}};

}  // namespace

std::optional<UnitSchemaData> readUnitSchema(const SchemaHeader& header) {
  using Text = std::string_view;
  for (const UnitKind& kind : kinds) {
    if (!isOfKind(header, kind.word)) continue;
    const Text name = readConstant<Text>(header, "name", std::nullopt, readNonEmptyString);
    const Text system = readConstant<Text>(header, "unitSystem", std::nullopt, readNonEmptyString);
    return UnitSchemaData{name, system == "Metric" ? System::Metric : System::Imperial,
                          kind.read(header)};
  }
  return std::nullopt;
}

namespace {

/// Stores a unit by the data of its component.
struct PendingUnit {
  const UnitSchemaData& unit;
  SchemaIds& ids;

  void operator()(const AbsoluteUnitSchemaData& data) const {
    add(RecordAccess::make<AbsoluteUnitComponent>(ids.refer(data.parentUnit), data.offset));
  }
  void operator()(const DerivedUnitSchemaData& data) const {
    const FactorComponent factor = makeFactorComponent(data.factor, ids);
    add(RecordAccess::make<DerivedUnitComponent>(ids.refer(data.parentUnits), factor));
  }
  void operator()(const DimensionalPrimitiveUnitSchemaData& data) const {
    ids.addPending(std::unique_ptr<DimensionalUnitSchema>(new DimensionalUnitSchema{
        std::string(unit.name), unit.unitSystem, ids.refer(data.dimension)}));
  }
  void operator()(const PrimitiveUnitSchemaData&) const { add(PrimitiveUnitComponent()); }

  template <class UnitComponent>
  void add(const UnitComponent& component) const {
    ids.addPending(
        RecordAccess::make<Unit>(ids.typeId(), std::string(unit.name), unit.unitSystem, component));
  }
};

}  // namespace

void addPending(const UnitSchemaData& data, SchemaIds& ids) {
  std::visit(PendingUnit{data, ids}, data.component);
}

Unit build(const SharedText& typeId, DimensionalUnitSchema& schema, const Registries& registries) {
  const PrimitiveUnitComponent component(
      findDependency(registries.dimensions, schema.dimension, typeId));
  return RecordAccess::make<Unit>(typeId, std::move(schema.name), schema.unitSystem, component);
}

void collectUnitReferences(const RecordNode<Unit>& unit, References& out) {
  std::vector<const RecordNode<Unit>*> waiting = {&unit};
  while (!waiting.empty()) {
    const RecordNode<Unit>& current = *waiting.back();
    waiting.pop_back();
    if (!out.visitedUnits.insert(&current).second) continue;
    if (const auto* const primitive = RecordAccess::primitive(current.record)) {
      if (const auto& dimension = RecordAccess::dimension(*primitive))
        out.typeIds.insert(RecordAccess::typeId(*dimension));
      continue;  // its node lists the unit itself as a parent
    }
    for (const auto& [parent, exponent] : current.parents) {
      out.typeIds.insert(RecordAccess::typeId(parent->record));
      waiting.push_back(parent);
    }
    collectParentFactors(current.parentFactors, out);
  }
}

namespace {

const char* kindWordOf(const Unit& unit) {
  if (RecordAccess::absolute(unit)) return absoluteWord;
  if (RecordAccess::derived(unit)) return derivedWord;
  return RecordAccess::dimension(*RecordAccess::primitive(unit)) ? dimensionalWord : primitiveWord;
}

void addComponentConstants(JSON& document, const Unit& unit, std::vector<JSON>& constants) {
  const std::string& typeId = RecordAccess::typeId(unit);
  if (const auto* const absolute = RecordAccess::absolute(unit)) {
    checkWritable(absolute->getOffset(), typeId);
    constants.push_back(makeTypedValueProperty(document, "parentUnit",  //
                                               RecordAccess::parentUnit(*absolute)));
    constants.push_back(makeValueProperty(document, "offset", absolute->getOffset()));
  } else if (const auto* const derived = RecordAccess::derived(unit)) {
    addFactorConstants(document, typeId, RecordAccess::factorComponent(*derived), constants);
    constants.push_back(
        makePowersProperty(document, "parentUnits", RecordAccess::parentUnitPowers(*derived)));
  } else if (const auto& dimension = RecordAccess::dimension(*RecordAccess::primitive(unit))) {
    constants.push_back(
        makeTypedValueProperty(document, "dimension", RecordAccess::typeId(*dimension)));
  }
}

}  // namespace

std::string writeUnitSchema(const Unit& unit) {
  JSON document = makeSchemaDocument(RecordAccess::typeId(unit), kindWordOf(unit));
  std::vector<JSON> constants;
  constants.push_back(makeValueProperty(document, "name", RecordAccess::name(unit)));
  const std::string system = unit.getUnitSystem() == System::Imperial ? "Imperial" : "Metric";
  constants.push_back(makeValueProperty(document, "unitSystem", system));
  addComponentConstants(document, unit, constants);
  setConstants(document, std::move(constants));
  return document.toString();
}

}  // namespace Units
