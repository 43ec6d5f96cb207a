#include "formula/UnitPowers.h"

#include "model/RecordAccess.h"
#include "model/Tolerances.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <utility>

namespace {

bool isNegligible(double exponent) {
  return !(std::fabs(exponent) >= Units::exponentEpsilon);  // true for NaN
}

bool isBefore(const UnitPower& a, const UnitPower& b) { return std::less<>()(a.unit, b.unit); }

/// A stable sort by unit. The few powers of nearly all products are sorted by insertion, because
/// std::stable_sort allocates.
void sortByUnit(UnitPower* begin, UnitPower* end) {
  constexpr std::ptrdiff_t maxInsertionSorted = 16;  // tuning
  if (end - begin > maxInsertionSorted) return std::stable_sort(begin, end, isBefore);
  for (UnitPower* next = begin; next != end; ++next)
    std::rotate(std::upper_bound(begin, next, *next, isBefore), next, next + 1);
}

std::int32_t truncate(double exponent) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (std::isnan(exponent)) return 0;
  if (exponent <= Limits::min()) return Limits::min();
  if (exponent >= Limits::max()) return Limits::max();
  return static_cast<std::int32_t>(exponent);
}

}  // namespace

UnitPowers::UnitPowers(const Units::Powers& powers) : settled_(powers.size()) {
  powers_.reserve(powers.size());
  UnitPower* end = powers_.end();
  for (const auto& [unit, exponent] : powers) {
    *end++ = {unit, static_cast<double>(exponent)};
    hasZeros_ = hasZeros_ || exponent == 0;
  }
  powers_.setEnd(end);
}

/// Appends the shorter list to the longer one. Swapping the sides changes no result, because a + b
/// is b + a, and a - b is -(b - a). Exponents of 0 prevent a swap: they are kept on the left side
/// and dropped on the right side.
void UnitPowers::combine(UnitPowers&& other, double sign) {
  if (other.powers_.size() > powers_.size() && !hasZeros_ && !other.hasZeros_) {
    std::swap(*this, other);
    sign_ *= sign;
    sign = 1.0;
  }
  other.settle();
  append(other, sign);
}

void UnitPowers::append(const UnitPowers& other, double sign) {
  constexpr std::size_t maxUnsettled = 16;
  powers_.reserve(powers_.size() + other.powers_.size());
  for (const auto& [unit, exponent] : other) powers_.push_back({unit, sign_ * sign * exponent});
  if (powers_.size() > 2 * settled_ + maxUnsettled) settle();  // tuning
}

/// Exponents of a unit are added in the order of the products. A negligible sum is set to 0 before
/// the next exponent is added.
void UnitPowers::settle() {
  if (settled_ < powers_.size()) mergeAdded();
  if (sign_ < 0.0)
    for (UnitPower& power : powers_) power.exponent = -power.exponent;
  sign_ = 1.0;
}

void UnitPowers::mergeAdded() {
  const UnitPower* known = powers_.begin();
  UnitPower* const added = powers_.begin() + settled_;
  sortByUnit(added, powers_.end());
  List merged;
  merged.reserve(powers_.size());
  for (const UnitPower* next = added; next != powers_.end();) {
    for (; known != added && isBefore(*known, *next); ++known) merged.push_back(*known);
    const auto* const unit = next->unit;
    double sum = known != added && known->unit == unit ? known++->exponent : 0.0;
    for (; next != powers_.end() && next->unit == unit; ++next) {
      sum = next->exponent + sum;
      if (isNegligible(sum)) sum = 0.0;
    }
    if (sum != 0.0) merged.push_back({unit, sum});
  }
  merged.append(known, added);
  powers_ = std::move(merged);
  settled_ = powers_.size();
}

Units::FormulaReason UnitPowers::raiseTo(double exponent) {
  settle();
  if (Units::isNearZero(exponent)) {
    *this = UnitPowers();
    return Units::FormulaReason::Done;
  }
  for (UnitPower& power : powers_) {
    power.exponent *= exponent;
    if (isNegligible(power.exponent)) return Units::FormulaReason::PowerOfNoUnits;
  }
  return Units::FormulaReason::Done;
}

UnitPowerMap toUnitPowerMap(const UnitPowers& powers) {
  UnitPowerMap byTypeId;
  for (const auto& [unit, exponent] : powers)
    byTypeId.emplace(Units::RecordAccess::typeId(unit->record), exponent);
  return byTypeId;
}

bool haveSamePowers(const UnitPowers& a, const UnitPowers& b) {
  const auto match = [](const UnitPower& left, const UnitPower& right) {
    return left.unit == right.unit && Units::areNearlyEqual(left.exponent, right.exponent);
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), match);
}

Units::Powers truncatePowers(const UnitPowers& powers) {
  Units::Powers truncated;
  truncated.reserve(static_cast<std::size_t>(powers.end() - powers.begin()));
  for (const auto& [unit, exponent] : powers) truncated.push_back({unit, truncate(exponent)});
  return truncated;
}
