#pragma once

#include "engine/Powers.h"
#include "model/RecordNode.h"

#include <array>
#include <cstddef>
#include <memory_resource>
#include <unordered_map>
#include <vector>

namespace Units {

/// A unit in primitive terms: v in the unit is (v + offset) * factor of `powers`.
struct ReducedUnit {
  double factor;
  double offset;
  Powers powers;  // in the reducer's memory
};

/// Reduces stored units to primitive terms.
///
/// It remembers what it has reduced for as long as it lives, which is one call of the engine, so
/// that definitions that share parents cost their number and not the number of paths through them.
/// Nothing recurses: definitions may be chained at any length. As long as it needs little memory,
/// that is its own.
class Reducer {
 public:
  /// What a reduction is asked for: a listing compares powers alone, and no factor is computed.
  enum class Wanted { All, PowersAlone };

  explicit Reducer(Wanted wanted = Wanted::All) : wanted_(wanted) {}
  Reducer(const Reducer&) = delete;

  /// @throws IncompatibleUnitsException  a parent unit is absolute. The reducer is of no use then.
  ReducedUnit reduce(const RecordNode<Unit>& unit);

 private:
  struct RelativeUnit {
    double factor;
    Powers powers;
  };

  /// A record on the way down: its parents before `next` are multiplied in.
  struct UnitStep {
    const RecordNode<Unit>* unit;
    double factor;
    std::size_t next;
    std::size_t firstPower;  // its powers so far are those from here on
  };
  struct FactorStep {
    const RecordNode<Factor>* factor;
    double value;
    std::size_t next;
  };

  double reduceRelative(const RecordNode<Unit>& unit);
  void enter(const RecordNode<Unit>& unit);
  void takeNextParent();
  double finish();
  double ownFactor(const RecordNode<Unit>& unit);
  double valueOf(const RecordNode<Factor>& factor);

  const Wanted wanted_;
  std::array<std::byte, 1536> buffer_;
  std::pmr::monotonic_buffer_resource memory_{buffer_.data(), buffer_.size()};
  std::pmr::unordered_map<const RecordNode<Unit>*, RelativeUnit> units_{&memory_};
  std::pmr::unordered_map<const RecordNode<Factor>*, double> factors_{&memory_};
  std::pmr::vector<UnitStep> path_{&memory_};
  std::pmr::vector<FactorStep> factorPath_{&memory_};
  Powers powers_{&memory_};  // of the units on the path, one after the other
};

}  // namespace Units
