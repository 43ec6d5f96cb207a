#pragma once

#include "model/Powers.h"
#include "model/RecordNode.h"
#include "model/ShortList.h"

#include <TrelvonUnits/FormulaReason.h>

#include <cstddef>
#include <map>
#include <string>
#include <utility>

/// The units of a formula's value: type ids of primitive units and their exponents, which a root
/// may make fractional. Empty means unitless.
using UnitPowerMap = std::map<std::string, double>;

struct UnitPower {
  const Units::RecordNode<Units::Unit>* unit;
  double exponent;
};

/// The units of a value during evaluation. Each unit occurs once, in order of node addresses.
///
/// A product only appends powers. `settle` merges them, before the powers are read and whenever the
/// list has doubled. So a product of n units takes O(n log n) time.
class UnitPowers {
 public:
  UnitPowers() = default;

  /// The powers of a unit.
  explicit UnitPowers(const Units::Powers& powers);

  /// Add or subtract the exponents of another value. An exponent that cancels is removed.
  /// @param other  moved from.
  void multiplyBy(UnitPowers&& other) { combine(std::move(other), 1.0); }
  void divideBy(UnitPowers&& other) { combine(std::move(other), -1.0); }

  /// @param other  not changed; must be settled.
  void multiplyBy(const UnitPowers& other) { append(other, 1.0); }
  void divideBy(const UnitPowers& other) { append(other, -1.0); }

  /// Multiplies every exponent by `exponent`. If that is near zero, the result is unitless.
  /// @return  PowerOfNoUnits if an exponent becomes zero or NaN.
  Units::FormulaReason raiseTo(double exponent);

  /// Merges the appended powers. Call it before the members below.
  void settle();

  /// The number of powers, those that wait to be merged counted by themselves.
  std::size_t unmergedSize() const { return powers_.size(); }

  bool empty() const { return powers_.empty(); }
  const UnitPower* begin() const { return powers_.begin(); }
  const UnitPower* end() const { return powers_.end(); }

 private:
  using List = Units::ShortList<UnitPower, 4>;  // tuning: the units of most values

  void combine(UnitPowers&& other, double sign);
  void append(const UnitPowers& other, double sign);
  void mergeAdded();

  List powers_;
  std::size_t settled_ = 0;  // this many powers are sorted and merged
  double sign_ = 1.0;        // to multiply all exponents by
  bool hasZeros_ = false;    // true for a unit whose parents cancel
};

UnitPowerMap toUnitPowerMap(const UnitPowers& powers);

/// Whether values in these units may be added: same units, nearly equal exponents.
bool haveSamePowers(const UnitPowers& a, const UnitPowers& b);

/// Truncates exponents to integers, toward zero, and clamps them to 32 bits. NaN becomes 0.
Units::Powers truncatePowers(const UnitPowers& powers);
