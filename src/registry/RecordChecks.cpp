#include "registry/RecordChecks.h"

#include "model/CompositeForms.h"
#include "model/RecordAccess.h"

#include <TrelvonUnits/Exceptions.h>

#include <algorithm>
#include <vector>

namespace Units {

namespace {

void checkDerived(const Unit& unit, const DerivedUnitComponent& derived,
                  const Registries& registries) {
  const auto& parents = RecordAccess::parentUnitPowers(derived);
  if (parents.empty())
    throw ValidationException("Derived unit " + RecordAccess::typeId(unit) +
                              " must specify at least one parent unit.");
  checkExponents(parents);
  for (const auto& [parent, exponent] : parents)
    checkRelativeUnit(parent, registries.units.objects);
  checkFactorParents(RecordAccess::factorComponent(derived), registries.factors.objects);
}

void checkPrimitive(const Unit& unit, const PrimitiveUnitComponent& primitive,
                    const RecordStore<Dimension>& dimensions) {
  const auto& dimension = RecordAccess::dimension(primitive);
  if (dimension && !dimensions.find(RecordAccess::typeId(*dimension)))
    throw ValidationException("Could not find dimension " + RecordAccess::typeId(*dimension) +
                              " for primitive unit " + RecordAccess::typeId(unit) + ".");
}

}  // namespace

void checkTypeId(const HashedText& typeId, const Registries& registries) {
  if (typeId.text.empty()) throw ValidationException("Typeid must not be empty.");
  if (isRegistered(typeId, registries))
    throw ValidationException("Schema with typeid " + std::string(typeId.text) +
                              " is already registered.");
}

void checkFactorParents(const FactorComponent& component, const RecordStore<Factor>& factors) {
  const auto& parents = RecordAccess::parentFactorPowers(component);
  checkExponents(parents);
  for (const auto& [parent, exponent] : parents)
    if (!factors.find(parent.str()))
      throw ValidationException("Parent factor " + parent.str() + " not found.");
}

void checkFactorParents(const Factor& factor, const RecordStore<Factor>& factors) {
  checkFactorParents(RecordAccess::factorComponent(factor), factors);
}

void checkRelativeUnit(const std::string& unitTypeId, const RecordStore<Unit>& units) {
  const Unit* const unit = units.find(unitTypeId);
  if (!unit || RecordAccess::absolute(*unit))
    throw ValidationException("Could not find relative unit with typeid " + unitTypeId + ".");
}

void checkUnit(const Unit& unit, const Registries& registries) {
  if (RecordAccess::name(unit).empty())
    throw ValidationException("Unit " + RecordAccess::typeId(unit) + " has an empty name.");
  if (const auto* const absolute = RecordAccess::absolute(unit))
    checkRelativeUnit(RecordAccess::parentUnit(*absolute), registries.units.objects);
  if (const auto* const derived = RecordAccess::derived(unit))
    checkDerived(unit, *derived, registries);
  if (const auto* const primitive = RecordAccess::primitive(unit))
    checkPrimitive(unit, *primitive, registries.dimensions.objects);
}

void checkSpecialSymbol(std::string_view symbolTypeId) {
  const bool special = std::any_of(
      specialSymbolKeys.begin(), specialSymbolKeys.end(),
      [&](std::string_view key) { return symbolTypeId.find(key) != symbolTypeId.npos; });
  if (!special)
    throw ValidationException("Symbol " + std::string(symbolTypeId) +
                              " must be a prefix or suffix.");
}

Symbol checkSymbol(const Symbol& symbol, const RecordStore<Unit>& units) {
  const std::string& typeId = RecordAccess::typeId(symbol);
  if (!RecordAccess::prefixOrSuffix(symbol)) checkSpecialSymbol(typeId);
  const std::string& unit = RecordAccess::typeId(RecordAccess::unit(symbol));
  const Unit* const stored = units.find(unit);
  if (!stored)
    throw ValidationException("Could not find unit " + unit + " for symbol " + typeId + ".");
  return Symbol(typeId, *stored, symbol.getPrefixOrSuffix());
}

Quantity checkQuantity(const Quantity& quantity, const RecordStore<Unit>& units) {
  const std::string& typeId = RecordAccess::typeId(quantity);
  if (RecordAccess::name(quantity).empty())
    throw ValidationException("Quantity " + typeId + " has an empty name.");
  std::vector<Unit> storedUnits;
  storedUnits.reserve(RecordAccess::units(quantity).size());
  for (const Unit& unit : RecordAccess::units(quantity)) {
    const Unit* const stored = units.find(RecordAccess::typeId(unit));
    if (!stored)
      throw ValidationException("Could not find unit " + RecordAccess::typeId(unit) +
                                " for quantity " + typeId + ".");
    storedUnits.push_back(*stored);
  }
  return Quantity(typeId, RecordAccess::name(quantity), storedUnits);
}

}  // namespace Units
