#include "formula/UnitPowers.h"

#include "model/Tolerances.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <stdexcept>

namespace {

bool isGone(double exponent) {
  return !(std::fabs(exponent) >= Units::exponentEpsilon);  // holds for what is no number too
}

void addExponent(UnitPowers& powers, const std::string* typeId, double exponent) {
  const auto place = std::lower_bound(powers.begin(), powers.end(), typeId,
                                      [](const UnitPower& power, const std::string* id) {
                                        return std::less<>()(power.typeId, id);
                                      });
  const bool known = place != powers.end() && place->typeId == typeId;
  const double sum = exponent + (known ? place->exponent : 0.0);
  if (isGone(sum)) {
    if (known) powers.erase(place);
  } else if (known) {
    place->exponent = sum;
  } else {
    powers.insert(place, {typeId, sum});
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

void orderPowers(UnitPowers& powers) {
  std::sort(powers.begin(), powers.end(), [](const UnitPower& a, const UnitPower& b) {
    return std::less<>()(a.typeId, b.typeId);
  });
}

UnitPowerMap toUnitPowerMap(const UnitPowers& powers) {
  UnitPowerMap byTypeId;
  for (const auto& [typeId, exponent] : powers) byTypeId.emplace(*typeId, exponent);
  return byTypeId;
}

bool doPowersMatch(const UnitPowers& a, const UnitPowers& b) {
  return std::equal(
      a.begin(), a.end(), b.begin(), b.end(), [](const UnitPower& left, const UnitPower& right) {
        return left.typeId == right.typeId && Units::areNearlyEqual(left.exponent, right.exponent);
      });
}

void multiplyPowers(UnitPowers& left, const UnitPowers& right) {
  for (const auto& [typeId, exponent] : right) addExponent(left, typeId, exponent);
}

void dividePowers(UnitPowers& left, const UnitPowers& right) {
  for (const auto& [typeId, exponent] : right) addExponent(left, typeId, -exponent);
}

void raisePowers(UnitPowers& powers, double exponent) {
  if (Units::isNearZero(exponent)) {
    powers.clear();
    return;
  }
  for (UnitPower& power : powers) {
    power.exponent *= exponent;
    if (isGone(power.exponent))
      throw std::logic_error(
          "legacy code dbgWarn: Something funny is going on with units. Dresmond 22-Apr-2003");
  }
}

std::vector<std::pair<const std::string*, int>> truncatePowers(const UnitPowers& powers) {
  std::vector<std::pair<const std::string*, int>> truncated;
  truncated.reserve(powers.size());
  for (const auto& [typeId, exponent] : powers) truncated.emplace_back(typeId, truncate(exponent));
  return truncated;
}
