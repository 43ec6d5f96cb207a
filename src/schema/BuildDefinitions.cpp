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

using FactorRegistry = KindRegistry<Factor>;
using UnitRegistry = KindRegistry<Unit>;

/// Frees each schema as soon as its record is built, so that the next record can reuse the memory.
template <class Schema, class Record>
void buildEach(IndexedMap<Schema>& schemas, RecordStore<Record>& built,
               const Registries& registries) {
  built.reserve(schemas.entries().size());
  auto waiting = schemas.release();
  while (!waiting.empty()) {
    const auto next = waiting.begin();
    built.add(build(next->second, registries));
    waiting.erase(next);
  }
}

void buildRecords(WaitingSchemas& waiting, Registries& registries) {
  buildEach(waiting.units, registries.units.built, registries);
  buildEach(waiting.symbols, registries.symbols.built, registries);
  buildEach(waiting.quantities, registries.quantities.built, registries);
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

void buildDefinitions(WaitingSchemas& waiting, Registries& registries) {
  buildRecords(waiting, registries);
  checkBuiltFactors(registries.factors);
  checkBuiltUnits(registries.factors, registries.units);
}

}  // namespace Units
