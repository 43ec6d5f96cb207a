#pragma once

#include "engine/Powers.h"
#include "model/RecordNode.h"
#include "model/ShortList.h"

#include <cstddef>
#include <map>

namespace Units {

/// A unit in primitive terms: v in the unit is (v + offset) * factor of `powers`.
struct ReducedUnit {
  double factor;
  double offset;
  Powers powers;
};

/// Reduces stored units to primitive terms.
///
/// It remembers what took long to reduce for as long as it lives, which is one call of the engine,
/// so that definitions that share parents cost their number and not the number of paths through
/// them. Nothing recurses: definitions may be chained at any length. A unit as nearly all are takes
/// no memory.
class Reducer {
 public:
  /// What a reduction is asked for: a listing compares powers alone, and no factor is computed.
  enum class Wanted { All, PowersAlone };

  explicit Reducer(Wanted wanted = Wanted::All) : wanted_(wanted) {}
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
    std::size_t workBefore;  // when it was entered
  };
  struct FactorStep {
    const RecordNode<Factor>* factor;
    double value;
    std::size_t next;
  };

  struct RelativeUnit {
    double factor;
    Powers powers;
  };

  double reduceRelative(const RecordNode<Unit>& unit, Powers& powers);
  void enter(const RecordNode<Unit>& unit, const Powers& powers);
  void takeNextParent(Powers& powers);
  double finish(Powers& powers);
  double ownFactor(const RecordNode<Unit>& unit);
  double valueOf(const RecordNode<Factor>& factor);

  const Wanted wanted_;
  std::size_t work_ = 0;  // powers looked at so far, the measure of what took long
  // Maps, which cost nothing to make: few units need them.
  std::map<const RecordNode<Unit>*, RelativeUnit> units_;
  std::map<const RecordNode<Factor>*, double> factors_;
  ShortList<UnitStep, 4> path_;
  ShortList<FactorStep, 4> factorPath_;
};

}  // namespace Units
