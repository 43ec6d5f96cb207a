#include "engine/UnitQueries.h"

#include "engine/Conversion.h"
#include "model/RecordAccess.h"

#include <algorithm>

namespace Units {

namespace {

/// Copies of the records that a predicate accepts.
template <class Record, class Predicate>
RecordMap<Record> select(const RecordMap<Record>& records, Predicate accepts) {
  RecordMap<Record> selected;
  for (const auto& [typeId, record] : records)
    if (accepts(record)) selected.emplace_hint(selected.end(), typeId, record);
  return selected;
}

Reducer reducerOf(const Registries& registries) {
  return Reducer(registries.units.objects, registries.factors.objects);
}

}  // namespace

RecordMap<Unit> primitiveUnits(const Registries& registries) {
  return select(registries.units.objects,
                [](const Unit& unit) { return RecordAccess::primitive(unit) != nullptr; });
}

RecordMap<Unit> primitiveUnitsOfDimension(const std::optional<Dimension>& dimension,
                                          const Registries& registries) {
  return select(registries.units.objects, [&](const Unit& unit) {
    const auto* const primitive = RecordAccess::primitive(unit);
    return primitive && RecordAccess::dimension(*primitive) == dimension;
  });
}

RecordMap<Unit> convertibleUnits(const std::string& unitTypeId, const Registries& registries) {
  const RecordMap<Unit>& units = registries.units.objects;
  if (units.empty()) return {};  // without a unit to compare with, the id is not looked up
  const Unit& from = lookUp(units, unitTypeId);
  Reducer reducer = reducerOf(registries);
  return select(units, [&](const Unit& unit) { return areConvertible(from, unit, reducer); });
}

RecordMap<Unit> unitsWithPrimitivePowers(const PrimitivePowers& powers,
                                         const Registries& registries) {
  const RecordMap<Unit>& units = registries.units.objects;
  for (const auto& [typeId, exponent] : powers) lookUp(units, typeId);
  Reducer reducer = reducerOf(registries);
  return select(units, [&](const Unit& unit) {
    bool inverted = false;
    return arePowersCompatible(powers, reducer.reduce(unit).powers, inverted) && !inverted;
  });
}

RecordMap<Symbol> symbolsOfUnit(const std::string& unitTypeId, const Registries& registries) {
  const Unit& unit = lookUp(registries.units.objects, unitTypeId);
  return select(registries.symbols.objects,
                [&](const Symbol& symbol) { return RecordAccess::unit(symbol) == unit; });
}

RecordMap<Quantity> quantitiesOfUnit(const std::string& unitTypeId, const Registries& registries) {
  const Unit& unit = lookUp(registries.units.objects, unitTypeId);
  return select(registries.quantities.objects, [&](const Quantity& quantity) {
    const auto& units = RecordAccess::units(quantity);
    return std::find(units.begin(), units.end(), unit) != units.end();
  });
}

}  // namespace Units
