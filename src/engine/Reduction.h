#pragma once

#include "engine/PointerMap.h"
#include "engine/Powers.h"
#include "model/RecordNode.h"
#include "model/ShortList.h"

#include <cstddef>

namespace Units {

/// A unit in primitive terms: v in the unit is (v + offset) * factor of `powers`.
struct ReducedUnit {
  double factor;
  double offset;
  Powers powers;
};

/// Reduces stored units to primitive terms.
///
/// It remembers what it has reduced for as long as it lives, which is one call of the engine, so
/// that definitions that share parents cost their number and not the number of paths through them.
/// Nothing recurses: definitions may be chained at any length.
class Reducer {
 public:
  enum class Purpose {
    Conversion,  // of few units: what takes little, as nearly all do, is not worth remembering
    Comparison,  // of few units by their powers alone: no factor is computed
    Listing,     // the same of all units: each is worth remembering
  };

  explicit Reducer(Purpose purpose = Purpose::Conversion) : purpose_(purpose) {}

  /// For a listing of `count` units.
  explicit Reducer(std::size_t count) : purpose_(Purpose::Listing), units_(count) {
    knownPowers_.reserve(2 * count);
  }

  Reducer(const Reducer&) = delete;

  /// @throws IncompatibleUnitsException  a parent unit is absolute. The reducer is of no use then.
  ReducedUnit reduce(const RecordNode<Unit>& unit);

 private:
  /// A record on the way down: its parents before `next` are multiplied in.
  struct UnitStep {
    const RecordNode<Unit>* unit;
    double factor;
    std::size_t next;
    std::size_t firstPower;  // its powers so far are those from here on
    std::size_t combineAt;   // when there are so many in all, its own are added up
    std::size_t workBefore;  // when it was entered
  };
  struct FactorStep {
    const RecordNode<Factor>* factor;
    double value;
    std::size_t next;
  };

  /// A relative unit that is remembered, with its share of `knownPowers_`.
  struct KnownUnit {
    double factor;
    std::size_t firstPower;
    std::size_t powerCount;
  };

  static constexpr std::size_t maxUncombined = 64;

  double reduceRelative(const RecordNode<Unit>& unit, Powers& powers);
  void enter(const RecordNode<Unit>& unit, const Powers& powers);
  void takeNextParent(Powers& powers);
  void combineIfMany(UnitStep& step, Powers& powers);
  double finish(Powers& powers);
  void remember(const UnitStep& done, const Powers& powers);
  double recall(const KnownUnit& known, int exponent, Powers& powers) const;
  double ownFactor(const RecordNode<Unit>& unit);
  double valueOf(const RecordNode<Factor>& factor);

  const Purpose purpose_;
  std::size_t work_ = 0;  // powers and factors looked at so far, the measure of what took long
  PointerMap<RecordNode<Unit>, KnownUnit> units_;
  Powers knownPowers_;
  PointerMap<RecordNode<Factor>, double> factors_;
  ShortList<UnitStep, 4> path_;
  ShortList<FactorStep, 4> factorPath_;
};

}  // namespace Units
