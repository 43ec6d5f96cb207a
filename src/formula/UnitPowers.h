#pragma once

#include "model/Powers.h"
#include "model/RecordNode.h"
#include "model/ShortList.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>

/// The units of a formula's value: type id of a primitive unit to its exponent, which a root may
/// make fractional. Empty means unitless.
using UnitPowerMap = std::map<std::string, double>;

struct UnitPower {
  const Units::RecordNode<Units::Unit>* unit;
  double exponent;
};

/// The same while a formula is computed: each unit once, ordered by the address of its node.
///
/// Products only add to the end. What they add is merged by `settle`, which comes before any look
/// at the powers, and when as much has been added as was there before. So a product of n units
/// takes time in proportion to n log n.
class UnitPowers {
 public:
  UnitPowers() = default;

  /// The powers of a unit.
  explicit UnitPowers(const Units::Powers& powers);

  /// Adds the exponents of another value to these, or subtracts them. An exponent that cancels is
  /// taken out.
  /// @param other  used up.
  void multiplyBy(UnitPowers&& other) { combine(std::move(other), 1.0); }
  void divideBy(UnitPowers&& other) { combine(std::move(other), -1.0); }

  /// The same with powers that stay, and are settled.
  void multiplyBy(const UnitPowers& other) { append(other, 1.0); }
  void divideBy(const UnitPowers& other) { append(other, -1.0); }

  /// Multiplies every exponent by `exponent`; one that is near zero leaves no units.
  /// @throws std::logic_error  an exponent comes out as zero or as NaN.
  void raiseTo(double exponent);

  /// Merges what products have added. The members below want this done.
  void settle();

  bool empty() const { return powers_.empty(); }
  const UnitPower* begin() const { return powers_.begin(); }
  const UnitPower* end() const { return powers_.end(); }

 private:
  void combine(UnitPowers&& other, double sign);
  void append(const UnitPowers& other, double sign);
  void mergeAdded();

  Units::ShortList<UnitPower, 2> powers_;
  std::size_t settled_ = 0;  // so many of them are in order
  double sign_ = 1.0;        // of all exponents
  bool hasZeros_ = false;    // as a unit has whose parents cancel
};

UnitPowerMap toUnitPowerMap(const UnitPowers& powers);

/// Whether values in these units may be added: the same entries, their exponents nearly equal.
bool haveSamePowers(const UnitPowers& a, const UnitPowers& b);

/// Cuts exponents to integers, toward zero. One beyond 32 bits becomes the nearest that they hold;
/// NaN becomes 0.
Units::Powers truncatePowers(const UnitPowers& powers);
