#pragma once

#include "registry/Registries.h"

#include <TrelvonUnits/Exceptions.h>

#include <string>

/// The rules that a record must meet before it is stored. Each check throws a ValidationException
/// at the first violation, in the order given.
namespace Units {

/// The type id is not empty and names nothing yet.
void checkTypeId(const std::string& typeId, const Registries& registries);

/// No exponent is 0.
template <class Powers>
void checkExponents(const Powers& powers) {
  for (const auto& [parent, exponent] : powers)
    if (exponent == 0) throw ValidationException("A parent may not be raised to a zero exponent.");
}

/// No exponent is 0; every parent is a stored factor.
void checkFactorParents(const FactorComponent& component, const RecordStore<Factor>& factors);
void checkFactorParents(const Factor& factor, const RecordStore<Factor>& factors);

/// The id names a stored unit that is not absolute.
void checkRelativeUnit(const std::string& unitTypeId, const RecordStore<Unit>& units);

/// The name is not empty; parents and dimension are stored and fit the unit's component.
void checkUnit(const Unit& unit, const Registries& registries);

/// A symbol without prefix or suffix is named as one of the composite forms.
void checkSpecialSymbol(const std::string& symbolTypeId);

/// The symbol may stand without prefix or suffix if it does; its unit is stored.
/// @return  the symbol to store, with the stored unit.
Symbol checkSymbol(const Symbol& symbol, const RecordStore<Unit>& units);

/// The name is not empty; all units are stored.
/// @return  the quantity to store, with the stored units.
Quantity checkQuantity(const Quantity& quantity, const RecordStore<Unit>& units);

}  // namespace Units
