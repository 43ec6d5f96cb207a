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
/// It stores what it has reduced. It lives for one call to the engine. If definitions share
/// parents, the cost depends on their number, not on the number of paths through them. Nothing
/// recurses, so chains of definitions may have any length.
class Reducer {
 public:
  enum class Purpose {
    Conversion,  // a few units; those that are cheap to reduce, nearly all, are not stored
    Comparison,  // a few units, powers only: no factor is computed
    Listing,     // all units, powers only: every one is stored
  };

  explicit Reducer(Purpose purpose = Purpose::Conversion) : purpose_(purpose) {}

  Reducer(const Reducer&) = delete;

  /// @throws IncompatibleUnitsException  a parent unit is absolute. The reducer must not be used
  ///                                     afterwards.
  ReducedUnit reduce(const RecordNode<Unit>& unit);

 private:
  /// A record on the search path. Its parents before `next` are multiplied in.
  struct UnitStep {
    const RecordNode<Unit>* unit;
    double factor;
    std::size_t next;
    std::size_t firstPower;  // where its powers begin
    std::size_t combineAt;   // at this total number of powers, its own are combined
    std::size_t workBefore;  // when it was entered
  };
  struct FactorStep {
    const RecordNode<Factor>* factor;
    double value;
    std::size_t next;
  };

  /// A relative unit that has been reduced, and its range of `knownPowers_`.
  struct KnownUnit {
    double factor;
    std::size_t firstPower;
    std::size_t powerCount;
  };

  static constexpr std::size_t maxUncombined = 64;  // tuning

  double reduceShallow(const RecordNode<Unit>& unit, Powers& powers);
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
  std::size_t work_ = 0;  // number of powers and factors read so far; measures cost
  PointerMap<RecordNode<Unit>, KnownUnit> units_;
  Powers knownPowers_;
  PointerMap<RecordNode<Factor>, double> factors_;
  ShortList<UnitStep, 4> path_;
  ShortList<FactorStep, 4> factorPath_;
};

}  // namespace Units
