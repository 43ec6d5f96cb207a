#pragma once

#include "engine/Powers.h"
#include "model/RecordMap.h"

#include <unordered_map>

namespace Units {

/// A unit in primitive terms: v in the unit is (v + offset) * factor of `powers`.
struct ReducedUnit {
  double factor;
  double offset;
  const Powers& powers;  // valid as long as the reducer and the records
};

/// Reduces units to primitive terms.
///
/// It remembers what it has reduced for as long as it lives, which is one call of the engine, so
/// that definitions that share parents cost their number and not the number of paths through them.
/// Records are told apart by their address. Nothing recurses: definitions may be chained at any
/// length.
class Reducer {
 public:
  Reducer(const RecordMap<Unit>& units, const RecordMap<Factor>& factors)
      : units_(units), factors_(factors) {}

  /// @throws UnrecognizedIdentifierException  a parent unit or factor is not stored.
  /// @throws IncompatibleUnitsException       a parent unit is absolute.
  ReducedUnit reduce(const Unit& unit);

 private:
  struct RelativeUnit {
    double factor;
    Powers powers;
  };
  struct FactorStep;
  struct UnitStep;

  double factorOf(const FactorComponent& component);
  const RelativeUnit& reduceRelative(const Unit& unit);
  const RelativeUnit* known(const Unit& unit) const;

  const RecordMap<Unit>& units_;
  const RecordMap<Factor>& factors_;
  std::unordered_map<const Factor*, double> reducedFactors_;
  std::unordered_map<const Unit*, RelativeUnit> reducedUnits_;
};

}  // namespace Units
