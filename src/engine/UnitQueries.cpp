#include "engine/UnitQueries.h"

#include "engine/Conversion.h"
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

std::uint64_t addressOf(const RecordNode<Unit>* unit) {
  return reinterpret_cast<std::uintptr_t>(unit);
}

/// The sum, modulo 2^64, of a unit's exponents multiplied by the addresses of their primitive units,
/// if it takes no search. Units with equal powers have equal sums.
std::optional<std::uint64_t> quickSum(const RecordNode<Unit>& unit) {
  constexpr int largest = 1000;  // so that no exponent, or sum of them, is clamped
  const auto isLarge = [](const auto& power) {
    return power.exponent > largest || power.exponent < -largest;
  };
  if (!isShallow(unit)) return std::nullopt;
  std::uint64_t sum = 0;
  for (const auto& power : unit.parents) {
    for (const auto& own : power.parent->parents) {
      if (isLarge(power) || isLarge(own)) return std::nullopt;
      sum += addressOf(own.parent) * static_cast<std::uint64_t>(power.exponent * own.exponent);
    }
  }
  return sum;
}

/// Finds units by their powers.
class PowersSearch {
 public:
  explicit PowersSearch(const Powers& wanted) : wanted_(wanted) {
    for (const auto& [unit, exponent] : wanted)
      sum_ += addressOf(unit) * static_cast<std::uint64_t>(exponent);
  }

  /// Whether the powers of a unit are those wanted, or all reciprocal, in which case `inverted` is
  /// set. Their sum rejects most units, which are then not reduced.
  bool accepts(const RecordNode<Unit>& unit, bool& inverted) {
    const auto sum = quickSum(unit);
    if (sum && *sum != sum_ && *sum != 0 - sum_) return false;  // tuning
    return arePowersCompatible(wanted_, reducer_.reduce(unit).powers, inverted);
  }

 private:
  const Powers& wanted_;
  std::uint64_t sum_ = 0;
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
