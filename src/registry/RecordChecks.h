#pragma once

#include "registry/Registries.h"

#include <TrelvonUnits/Exceptions.h>

#include <string>
#include <string_view>

/// The rules for records. Each check throws a ValidationException for the first violation, in the
/// order given.
namespace Units {

/// The type id is not empty and not registered yet.
void checkTypeId(const HashedText& typeId, const Registries& registries);

/// No exponent is 0.
template <class Powers>
void checkExponents(const Powers& powers) {
  for (const auto& [parent, exponent] : powers)
    if (exponent == 0) throw ValidationException("A parent may not be raised to a zero exponent.");
}

/// No exponent is 0; every parent is a stored factor.
void checkFactorParents(const FactorComponent& component, const RecordStore<Factor>& factors);
void checkFactorParents(const Factor& factor, const RecordStore<Factor>& factors);

/// The type id belongs to a stored unit that is not absolute.
void checkRelativeUnit(const std::string& unitTypeId, const RecordStore<Unit>& units);

/// The name is not empty. Parents and dimension are stored and valid for the unit's component.
void checkUnit(const Unit& unit, const Registries& registries);

/// The type id of a symbol without prefix or suffix contains the key of a composite form.
void checkSpecialSymbol(std::string_view symbolTypeId);

/// A symbol without prefix or suffix is composite. The unit is stored.
/// @return  the symbol to store, with the stored unit.
Symbol checkSymbol(const Symbol& symbol, const RecordStore<Unit>& units);

/// The name is not empty. All units are stored.
/// @return  the quantity to store, with the stored units.
Quantity checkQuantity(const Quantity& quantity, const RecordStore<Unit>& units);

}  // namespace Units
