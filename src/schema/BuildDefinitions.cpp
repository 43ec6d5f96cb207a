#include "schema/BuildDefinitions.h"

#include "model/RecordAccess.h"
#include "registry/RecordChecks.h"
#include "schema/Ancestry.h"
#include "schema/FactorSchema.h"
#include "schema/FindDependency.h"
#include "schema/QuantitySchema.h"
#include "schema/SymbolSchema.h"
#include "schema/UnitSchema.h"

#include <string>

namespace Units {

namespace {

using FactorRegistry = KindRegistry<FactorSchemaData, Factor>;
using UnitRegistry = KindRegistry<UnitSchemaData, Unit>;

/// Frees each schema as soon as its record is built, so that the next record can reuse the memory.
template <class SchemaData, class Record, class Build>
void buildKind(KindRegistry<SchemaData, Record>& kind, const Build& build) {
  kind.built.reserve(kind.batch.size());
  while (!kind.batch.empty()) {
    const auto next = kind.batch.begin();
    build(next->first, next->second, kind.built);
    kind.batch.erase(next);
  }
}

void buildRecords(Registries& registries) {
  buildKind(registries.dimensions,
            [](const auto&, const auto& dimension, auto& built) { built.add(dimension); });
  buildKind(registries.factors, buildFactor);
  buildKind(registries.units, [&](const auto& typeId, const auto& data, auto& built) {
    buildUnit(typeId, data, registries.dimensions, built);
  });
  buildKind(registries.symbols, [&](const auto& typeId, const auto& data, auto& built) {
    buildSymbol(typeId, data, registries.units, built);
  });
  buildKind(registries.quantities, [&](const auto& typeId, const auto& data, auto& built) {
    buildQuantity(typeId, data, registries.units, built);
  });
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

void buildDefinitions(Registries& registries) {
  buildRecords(registries);
  checkBuiltFactors(registries.factors);
  checkBuiltUnits(registries.factors, registries.units);
}

}  // namespace Units
