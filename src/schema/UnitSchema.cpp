#include "schema/UnitSchema.h"

#include "model/RecordAccess.h"
#include "schema/ConstantReaders.h"
#include "schema/FactorSchema.h"
#include "schema/FindDependency.h"
#include "schema/SchemaWriter.h"

#include <map>
#include <utility>
#include <variant>
#include <vector>

namespace Units {

namespace {

constexpr const char* absoluteWord = "unit.absolute";
constexpr const char* derivedWord = "unit.derived";
constexpr const char* dimensionalWord = "unit.primitive.dimensional";
constexpr const char* primitiveWord = "unit.primitive";

UnitSchemaData readAbsolute(const SchemaHeader& header, std::string name, System unitSystem) {
  const double offset = readConstant<double>(header, "offset", 0.0, readNumber);
  return AbsoluteUnitSchemaData{
      std::move(name), unitSystem, offset,
      readConstant<std::string>(header, "parentUnit", std::nullopt, readTypedValue)};
}

UnitSchemaData readDerived(const SchemaHeader& header, std::string name, System unitSystem) {
  using Powers = std::map<std::string, int>;
  const double factor = readConstant<double>(header, "factor", 1.0, readNumber);
  auto parentFactors = readConstant<Powers>(header, "parentFactors", Powers(), readIntegerMap);
  auto parentUnits = readConstant<Powers>(header, "parentUnits", std::nullopt, readIntegerMap);
  noteConstant(header, "parentUnits");
  if (parentUnits.empty())
    throw ValidationException("Derived unit " + header.typeId +
                              " must specify at least one parent unit.");
  checkParents(header, "parentUnits", parentUnits);
  checkParents(header, "parentFactors", parentFactors);
  return DerivedUnitSchemaData{std::move(name), unitSystem, factor, std::move(parentFactors),
                               std::move(parentUnits)};
}

UnitSchemaData readDimensional(const SchemaHeader& header, std::string name, System unitSystem) {
  return DimensionalPrimitiveUnitSchemaData{
      std::move(name), unitSystem,
      readConstant<std::string>(header, "dimension", std::nullopt, readTypedValue)};
}

UnitSchemaData readPrimitive(const SchemaHeader&, std::string name, System unitSystem) {
  return PrimitiveUnitSchemaData{std::move(name), unitSystem};
}

struct UnitKind {
  const char* word;
  UnitSchemaData (*read)(const SchemaHeader&, std::string name, System unitSystem);
};
constexpr UnitKind kinds[] = {{absoluteWord, readAbsolute},
                              {derivedWord, readDerived},
                              {dimensionalWord, readDimensional},
                              {primitiveWord, readPrimitive}};

}  // namespace

std::optional<UnitSchemaData> readUnitSchema(const SchemaHeader& header) {
  for (const UnitKind& kind : kinds) {
    if (!isOfKind(header, kind.word)) continue;
    auto name = readConstant<std::string>(header, "name", std::nullopt, readNonEmptyString);
    const auto system =
        readConstant<std::string>(header, "unitSystem", std::nullopt, readNonEmptyString);
    return kind.read(header, std::move(name),
                     system == "Metric" ? System::Metric : System::Imperial);
  }
  return std::nullopt;
}

namespace {

struct Dependencies {
  using Result = std::set<std::string>;

  Result operator()(const AbsoluteUnitSchemaData& data) const { return {data.parentUnit}; }
  Result operator()(const DerivedUnitSchemaData& data) const {
    Result dependencies;
    for (const auto& [parent, exponent] : data.parentUnits) dependencies.insert(parent);
    for (const auto& [parent, exponent] : data.parentFactors) dependencies.insert(parent);
    return dependencies;
  }
  Result operator()(const DimensionalPrimitiveUnitSchemaData& data) const {
    return {data.dimension};
  }
  Result operator()(const PrimitiveUnitSchemaData&) const { return {}; }
};

struct Component {
  const std::string& typeId;
  const KindRegistry<Dimension, Dimension>& dimensions;
  RecordStore<Unit>& built;

  void operator()(const AbsoluteUnitSchemaData& data) const {
    emplace(data, AbsoluteUnitComponent(data.parentUnit, data.offset));
  }
  void operator()(const DerivedUnitSchemaData& data) const {
    emplace(data, DerivedUnitComponent(data.parentUnits,
                                       FactorComponent(data.factor, data.parentFactors)));
  }
  void operator()(const DimensionalPrimitiveUnitSchemaData& data) const {
    emplace(data, PrimitiveUnitComponent(findDependency(dimensions, data.dimension, typeId)));
  }
  void operator()(const PrimitiveUnitSchemaData& data) const {
    emplace(data, PrimitiveUnitComponent());
  }

  template <class SchemaData, class UnitComponent>
  void emplace(const SchemaData& data, const UnitComponent& component) const {
    built.add(Unit(typeId, data.name, data.unitSystem, component));
  }
};

}  // namespace

std::set<std::string> unitSchemaDependencies(const UnitSchemaData& data) {
  return std::visit(Dependencies(), data);
}

void buildUnit(const std::string& typeId, const UnitSchemaData& data,
               const KindRegistry<Dimension, Dimension>& dimensions, RecordStore<Unit>& built) {
  std::visit(Component{typeId, dimensions, built}, data);
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
