#include "schema/BuildDefinitions.h"

#include "model/RecordAccess.h"
#include "registry/RecordChecks.h"
#include "schema/Ancestry.h"
#include "schema/FactorSchema.h"
#include "schema/FindDependency.h"
#include "schema/QuantitySchema.h"
#include "schema/SymbolSchema.h"
#include "schema/UnitSchema.h"

#include <memory>
#include <string>
#include <variant>

namespace Units {

namespace {

using FactorRegistry = KindRegistry<Factor>;
using UnitRegistry = KindRegistry<Unit>;

/// Builds the record of a schema. Moves from the schema.
struct RecordBuilder {
  const SharedText& typeId;
  Registries& registries;

  void operator()(PendingSchema::OnlyAwaited) const {}
  void operator()(const Dimension& dimension) const { registries.dimensions.built.add(dimension); }
  void operator()(const Factor& factor) const { registries.factors.built.add(factor); }
  void operator()(const Unit& unit) const { registries.units.built.add(unit); }
  void operator()(const std::unique_ptr<DimensionalUnitSchema>& schema) const {
    registries.units.built.add(build(typeId, *schema, registries));
  }
  void operator()(SymbolSchema& schema) const {
    registries.symbols.built.add(build(typeId, schema, registries));
  }
  void operator()(const std::unique_ptr<QuantitySchema>& schema) const {
    registries.quantities.built.add(build(typeId, *schema, registries));
  }
};

void buildRecords(PendingSchemas& pending, Registries& registries) {
  for (PendingSchema* const schema : pending.inOrder())
    std::visit(RecordBuilder{schema->typeId, registries}, schema->contents);
}

void checkBuiltFactors(const FactorRegistry& factors) {
  const auto parentsOf = [](const Factor& factor) -> const ParentList& {
    return RecordAccess::parentFactorPowers(RecordAccess::factorComponent(factor));
  };
  VisitStates<Factor> states;
  for (const auto& [typeId, node] : factors.built.nodes())
    checkAncestry(RecordAccess::typeId(node.record), factors, parentsOf, states);
}

[[noreturn]] void rejectParent(const std::string& parent, const char* kind,
                               const std::string& unit) {
  throw ValidationException("Parent unit " + parent + " in " + kind + " unit " + unit +
                            " is not a relative unit.");
}

void checkDerived(const std::string& typeId, const DerivedUnitComponent& derived,
                  const FactorRegistry& factors, const UnitRegistry& units,
                  VisitStates<Unit>& states) {
  const FactorComponent& component = RecordAccess::factorComponent(derived);
  for (const auto& [parent, exponent] : RecordAccess::parentFactorPowers(component))
    findDependency(factors, parent, typeId);
  for (const auto& [parent, exponent] : RecordAccess::parentUnitPowers(derived))
    if (RecordAccess::absolute(findDependency(units, parent, typeId)))
      rejectParent(parent, "derived", typeId);

  static const ParentList none;
  const auto parentsOf = [&](const Unit& unit) -> const ParentList& {
    if (RecordAccess::absolute(unit)) rejectParent(RecordAccess::typeId(unit), "derived", typeId);
    const auto* const isDerived = RecordAccess::derived(unit);
    return isDerived ? RecordAccess::parentUnitPowers(*isDerived) : none;
  };
  checkAncestry(typeId, units, parentsOf, states);
}

void checkAbsolute(const std::string& typeId, const AbsoluteUnitComponent& absolute,
                   const UnitRegistry& units) {
  const std::string& parent = RecordAccess::parentUnit(absolute);
  const Unit* const built = units.built.find(parent);
  if (!built)
    checkRelativeUnit(parent, units.objects);
  else if (RecordAccess::absolute(*built))
    rejectParent(parent, "absolute", typeId);
}

void checkBuiltUnits(const FactorRegistry& factors, const UnitRegistry& units) {
  VisitStates<Unit> states;
  for (const auto& [id, node] : units.built.nodes()) {
    const std::string& typeId = RecordAccess::typeId(node.record);
    if (const auto* const derived = RecordAccess::derived(node.record))
      checkDerived(typeId, *derived, factors, units, states);
    else if (const auto* const absolute = RecordAccess::absolute(node.record))
      checkAbsolute(typeId, *absolute, units);
  }
}

}  // namespace

void buildDefinitions(PendingSchemas& pending, Registries& registries) {
  buildRecords(pending, registries);
  checkBuiltFactors(registries.factors);
  checkBuiltUnits(registries.factors, registries.units);
}

}  // namespace Units
