#include "formula/UnitPowers.h"

#include "model/Tolerances.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

bool isGone(double exponent) {
  return !(std::fabs(exponent) >= Units::exponentEpsilon);  // holds for what is no number too
}

void addExponent(UnitPowerMap& powers, const std::string& typeId, double exponent) {
  const auto place = powers.lower_bound(typeId);
  const bool known = place != powers.end() && place->first == typeId;
  const double sum = exponent + (known ? place->second : 0.0);
  if (isGone(sum)) {
    if (known) powers.erase(place);
  } else if (known) {
    place->second = sum;
  } else {
    powers.emplace_hint(place, typeId, sum);
  }
}

int truncate(double exponent) {
  using Limits = std::numeric_limits<int>;
  if (std::isnan(exponent)) return 0;
  if (exponent <= Limits::min()) return Limits::min();
  if (exponent >= Limits::max()) return Limits::max();
  return static_cast<int>(exponent);
}

}  // namespace

bool doPowersMatch(const UnitPowerMap& a, const UnitPowerMap& b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](const auto& left, const auto& right) {
           return left.first == right.first && Units::areNearlyEqual(left.second, right.second);
         });
}

void multiplyPowers(UnitPowerMap& left, const UnitPowerMap& right) {
  for (const auto& [typeId, exponent] : right) addExponent(left, typeId, exponent);
}

void dividePowers(UnitPowerMap& left, const UnitPowerMap& right) {
  for (const auto& [typeId, exponent] : right) addExponent(left, typeId, -exponent);
}

void raisePowers(UnitPowerMap& powers, double exponent) {
  if (Units::isNearZero(exponent)) {
    powers.clear();
    return;
  }
  for (auto& entry : powers) {
    entry.second *= exponent;
    if (isGone(entry.second))
      throw std::logic_error(
          "legacy code dbgWarn: Something funny is going on with units. Dresmond 22-Apr-2003");
  }
}

Units::PrimitivePowers truncatePowers(const UnitPowerMap& powers) {
  Units::PrimitivePowers truncated;
  for (const auto& [typeId, exponent] : powers)
    truncated.emplace_hint(truncated.end(), typeId, truncate(exponent));
  return truncated;
}
