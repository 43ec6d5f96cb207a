#pragma once

#include "registry/Registries.h"

#include <TrelvonUnits/PrimitivePowers.h>

#include <optional>
#include <string>

/// The queries that UnitsEngine.h documents.
namespace Units {

RecordMap<Unit> primitiveUnits(const Registries& registries);
RecordMap<Unit> primitiveUnitsOfDimension(const std::optional<Dimension>& dimension,
                                          const Registries& registries);
RecordMap<Unit> convertibleUnits(const std::string& unitTypeId, const Registries& registries);
RecordMap<Unit> unitsWithPrimitivePowers(const PrimitivePowers& powers,
                                         const Registries& registries);
RecordMap<Symbol> symbolsOfUnit(const std::string& unitTypeId, const Registries& registries);
RecordMap<Quantity> quantitiesOfUnit(const std::string& unitTypeId, const Registries& registries);

}  // namespace Units
