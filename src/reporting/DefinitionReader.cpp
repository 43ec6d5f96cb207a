#include "reporting/DefinitionReader.h"

#include "schema/ReadKind.h"
#include "schema/ValidationExceptionFactory.h"

#include <memory>
#include <string_view>
#include <utility>
#include <variant>

namespace Schemas {

namespace {

using Form = Reference::Form;
using Units::ReadingStep;

/// Makes a definition of the data of each kind.
struct DefinitionMaker {
  std::string_view typeId;

  Definition operator()(const Units::DimensionSchemaData&) const {
    return make(RecordKind::Dimension);
  }

  Definition operator()(const Units::FactorSchemaData& data) const {
    Definition made = make(RecordKind::Factor);
    addPowers(data.parentFactors, "parentFactors", made);
    return made;
  }

  Definition operator()(const Units::UnitSchemaData& data) const {
    return std::visit(*this, data.component);
  }

  Definition operator()(const Units::AbsoluteUnitSchemaData& data) const {
    return make(RecordKind::AbsoluteUnit, data.parentUnit, "parentUnit");
  }

  Definition operator()(const Units::DerivedUnitSchemaData& data) const {
    Definition made = make(RecordKind::RelativeUnit);
    addPowers(data.factor.parentFactors, "parentFactors", made);
    addPowers(data.parentUnits, "parentUnits", made);
    return made;
  }

  Definition operator()(const Units::DimensionalPrimitiveUnitSchemaData& data) const {
    return make(RecordKind::RelativeUnit, data.dimension, "dimension");
  }

  Definition operator()(const Units::PrimitiveUnitSchemaData&) const {
    return make(RecordKind::RelativeUnit);
  }

  Definition operator()(const Units::SymbolSchemaData& data) const {
    return make(RecordKind::Symbol, data.unit, "unit");
  }

  Definition operator()(const Units::QuantitySchemaData& data) const {
    Definition made = make(RecordKind::Quantity);
    for (const std::string_view unit : data.units)
      made.references.push_back({std::string(unit), "units", Form::Listed, made.references.size()});
    return made;
  }

  Definition make(RecordKind kind) const { return {std::string(typeId), kind, {}}; }

  Definition make(RecordKind kind, std::string_view referred, const char* constant) const {
    return {std::string(typeId), kind, {{std::string(referred), constant, Form::Single, 0}}};
  }

  static void addPowers(const Units::ParentViews& powers, const char* constant, Definition& made) {
    for (const auto& [parent, exponent] : powers)
      made.references.push_back({std::string(parent), constant, Form::Power, 0});
  }
};

}  // namespace

bool accepts(RecordKind kind, const Reference& reference, RecordKind referred) {
  const std::string_view constant = reference.constant;
  if (constant == "dimension") return referred == RecordKind::Dimension;
  if (constant == "parentFactors") return referred == RecordKind::Factor;
  const bool isShown = kind == RecordKind::Symbol || kind == RecordKind::Quantity;
  return referred == RecordKind::RelativeUnit || (isShown && referred == RecordKind::AbsoluteUnit);
}

ReadResult readDefinition(const std::string& text,
                          const std::function<bool(const std::string&)>& isTaken,
                          Units::ReadingTrace* trace) {
  ReadResult result;
  try {
    const Units::SchemaHeader header =
        Units::readSchemaHeader(std::make_shared<Units::ValidationExceptionFactory>(), text, trace);
    result.typeId = header.typeId;
    note(trace, ReadingStep::member("typeid"));
    result.isTaken = isTaken(result.typeId);
    if (!result.isTaken) result.definition = readKind(header, DefinitionMaker{header.typeId});
  } catch (const Units::ValidationException& error) {
    result.refusal = error.what();
  }
  return result;
}

}  // namespace Schemas
