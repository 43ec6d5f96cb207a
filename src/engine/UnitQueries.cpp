#include "engine/UnitQueries.h"

#include "engine/Conversion.h"
#include "engine/PowerSums.h"
#include "model/CompatiblePowers.h"
#include "model/RecordAccess.h"

#include <algorithm>
#include <cstdint>

namespace Units {

namespace {

/// Copies of the records that a predicate accepts.
template <class Record, class Predicate>
RecordMap<Record> select(const RecordStore<Record>& records, Predicate accepts) {
  RecordMap<Record> selected;
  for (const auto& [typeId, node] : records.nodes())
    if (accepts(node.record)) selected.emplace_hint(selected.end(), typeId, node.record);
  return selected;
}

/// Copies of the units whose nodes a predicate accepts.
template <class Predicate>
RecordMap<Unit> selectUnits(const RecordStore<Unit>& units, Predicate accepts) {
  RecordMap<Unit> selected;
  for (const auto& [typeId, node] : units.nodes())
    if (accepts(node)) selected.emplace_hint(selected.end(), typeId, node.record);
  return selected;
}

/// Finds units by their powers.
class PowersSearch {
 public:
  explicit PowersSearch(const Powers& wanted) : wanted_(wanted), sum_(PowerSums::of(wanted)) {}

  /// Whether the powers of a unit are those wanted, or all reciprocal, in which case `inverted` is
  /// set. Their sum rejects most units, which are then not reduced.
  bool accepts(const RecordNode<Unit>& unit, bool& inverted) {
    const auto sum = sums_.of(unit);
    if (sum && *sum != sum_ && *sum != 0 - sum_) return false;  // tuning
    return arePowersCompatible(wanted_, reducer_.reduce(unit).powers, inverted);
  }

 private:
  const Powers& wanted_;
  const std::uint64_t sum_;
  PowerSums sums_;
  Reducer reducer_{Reducer::Purpose::Listing};
};

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
  const RecordStore<Unit>& units = registries.units.objects;
  if (units.size() == 0) return {};  // with no unit to compare with, the id is not looked up
  const RecordNode<Unit>& from = lookUpNode(units, unitTypeId);
  const ReducedUnit reduced = Reducer(Reducer::Purpose::Comparison).reduce(from);
  PowersSearch search(reduced.powers);
  return selectUnits(units, [&](const RecordNode<Unit>& unit) {
    bool inverted = false;
    return areBothAbsoluteOrRelative(from, unit) && search.accepts(unit, inverted);
  });
}

RecordMap<Unit> unitsWithPrimitivePowers(const PrimitivePowers& powers,
                                         const Registries& registries) {
  const RecordStore<Unit>& units = registries.units.objects;
  Powers wanted;
  for (const auto& [typeId, exponent] : powers)
    wanted.push_back({&lookUpNode(units, typeId), exponent});
  combinePowers(wanted, 0);
  PowersSearch search(wanted);
  return selectUnits(units, [&](const RecordNode<Unit>& unit) {
    bool inverted = false;
    return search.accepts(unit, inverted) && !inverted;
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
