#include "reporting/DefinitionReader.h"

#include "schema/ReadKind.h"
#include "schema/ValidationExceptionFactory.h"

#include <memory>
#include <utility>

namespace Schemas {

namespace {

using Form = Reference::Form;
using Units::ReadingStep;

/// Makes a definition of the data of each kind.
struct DefinitionMaker {
  const std::string& typeId;

  Definition operator()(const Units::Dimension&) const { return make(RecordKind::Dimension); }

  Definition operator()(const Units::FactorSchemaData& data) const {
    Definition made = make(RecordKind::Factor);
    if (const auto* const derived = std::get_if<Units::DerivedFactorSchemaData>(&data))
      addPowers(derived->parentFactors, "parentFactors", made);
    return made;
  }

  Definition operator()(const Units::UnitSchemaData& data) const {
    if (const auto* const absolute = std::get_if<Units::AbsoluteUnitSchemaData>(&data))
      return make(RecordKind::AbsoluteUnit, absolute->parentUnit, "parentUnit");
    if (const auto* const primitive = std::get_if<Units::DimensionalPrimitiveUnitSchemaData>(&data))
      return make(RecordKind::RelativeUnit, primitive->dimension, "dimension");
    Definition made = make(RecordKind::RelativeUnit);
    if (const auto* const derived = std::get_if<Units::DerivedUnitSchemaData>(&data)) {
      addPowers(derived->parentFactors, "parentFactors", made);
      addPowers(derived->parentUnits, "parentUnits", made);
    }
    return made;
  }

  Definition operator()(const Units::SymbolSchemaData& data) const {
    return make(RecordKind::Symbol, data.unit, "unit");
  }

  Definition operator()(const Units::QuantitySchemaData& data) const {
    Definition made = make(RecordKind::Quantity);
    for (const std::string& unit : data.units)
      made.references.push_back({unit, "units", Form::Listed, made.references.size()});
    return made;
  }

  Definition make(RecordKind kind) const { return {typeId, kind, {}}; }

  Definition make(RecordKind kind, const std::string& referred, const char* constant) const {
    return {typeId, kind, {{referred, constant, Form::Single, 0}}};
  }

  static void addPowers(const std::map<std::string, int>& powers, const char* constant,
                        Definition& made) {
    for (const auto& [parent, exponent] : powers)
      made.references.push_back({parent, constant, Form::Power, 0});
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
    result.isTaken = isTaken(header.typeId);
    if (!result.isTaken) result.definition = readKind(header, DefinitionMaker{header.typeId});
  } catch (const Units::ValidationException& error) {
    result.refusal = error.what();
  }
  return result;
}

}  // namespace Schemas
